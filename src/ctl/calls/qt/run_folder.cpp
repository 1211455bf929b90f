// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/run_folder.h"

#include "commission/folder/native_runs.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <utility>

namespace zorvane::ctl {

namespace {

/// The run that was begun last, whatever the clock does.
std::string newestOf(const commission::Run_Store& runs) {
    std::optional<std::pair<std::int64_t, std::string>> newest;
    for (const std::string& name : runs.names()) {
        const auto head =
            nlohmann::json::parse(runs.read(name, commission::runFile).value_or(""), nullptr, false);
        if (!head.is_object()) continue;
        const auto sequence = head.value("sequence", nlohmann::json());
        if (!sequence.is_number_integer()) continue;
        const std::pair found(sequence.get<std::int64_t>(), name);
        if (!newest || found > *newest) newest = found;
    }
    return newest ? newest->second : "";
}

} // namespace

Run_Folder_Name runFolderOf(const std::string& state, const std::string& given) {
    const std::string folder = state + "/runs";
    if (given == "last") return {folder, newestOf(commission::Native_Runs(folder))};
    if (given.find('/') == std::string::npos) return {folder, given};
    std::filesystem::path path = std::filesystem::path(given).lexically_normal();
    if (!path.has_filename()) path = path.parent_path();
    const std::string parent = path.parent_path().string();
    return {parent.empty() ? "." : parent, path.filename().string()};
}

} // namespace zorvane::ctl
