// SPDX-License-Identifier: MIT
#include "commission/folder/serial_memory.h"

#include "commission/folder/journal.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace zorvane::commission {

namespace {

Json keptSerials(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    Json json = Json::parse(in, nullptr, false);
    return json.is_object() ? json : Json::object();
}

} // namespace

std::string serialKey(const std::string& documentPath, const std::string& port, std::int32_t unit) {
    return documentPath + " " + port + " " + std::to_string(unit);
}

std::optional<std::string> Native_Serials::known(const std::string& key) const {
    const Json all = keptSerials(file());
    const auto found = all.find(key);
    if (found == all.end() || !found->is_string()) return std::nullopt;
    return found->get<std::string>();
}

std::string Native_Serials::remember(const std::string& key, const std::string& serial) {
    Json all = keptSerials(file());
    all[key] = serial;
    const std::string fresh = file() + ".new";
    std::error_code error;
    {
        std::ofstream out(fresh, std::ios::binary | std::ios::trunc);
        out << all.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
        if (!out.flush()) error = std::make_error_code(std::errc::io_error);
    }
    if (!error) std::filesystem::rename(fresh, file(), error);
    return error ? "The serial number can't be kept for the next time: " + error.message() + "." : "";
}

} // namespace zorvane::commission
