// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/commission/serial_memory.h"

#include "ctl/document/notices.h"
#include "ctl/text/json_text.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zorvane::ctl {

namespace {

std::string memoryFile(const Call_Context& context) { return context.stateFolder + "/serials.json"; }

Json memory(const Call_Context& context) {
    std::ifstream in(memoryFile(context), std::ios::binary);
    Json json = Json::parse(in, nullptr, false);
    return json.is_object() ? json : Json::object();
}

} // namespace

std::optional<std::string> knownSerial(const Call_Context& context, const std::string& key) {
    const Json all = memory(context);
    const auto found = all.find(key);
    if (found == all.end() || !found->is_string()) return std::nullopt;
    return found->get<std::string>();
}

void rememberSerial(const Call_Context& context, const std::string& key, const std::string& serial) {
    Json all = memory(context);
    all[key] = serial;
    const std::string fresh = memoryFile(context) + ".new";
    std::error_code error;
    {
        std::ofstream out(fresh, std::ios::binary | std::ios::trunc);
        printJson(out, all);
        if (!out.flush()) error = std::make_error_code(std::errc::io_error);
    }
    if (!error) std::filesystem::rename(fresh, memoryFile(context), error);
    if (error)
        tell(context.err, "The serial number can't be kept for the next time: " + error.message() + ".");
}

} // namespace zorvane::ctl
