// SPDX-License-Identifier: MIT
#include "simulator/registers/register_storage.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace zorvane::simulator {

std::string registerJson(const std::map<std::int32_t, std::uint16_t>& values) {
    std::string text = "{";
    for (const auto& [number, value] : values)
        text += (text.size() > 1 ? ",\n \"" : "\"") + std::to_string(number) + "\": " + std::to_string(value);
    return text + "}\n";
}

bool Register_Storage::exists() const {
    std::error_code error;
    return std::filesystem::exists(path_, error);
}

void Register_Storage::keep(const std::map<std::int32_t, std::uint16_t>& values) const {
    const std::string beside = path_ + ".new";
    std::ofstream file(beside, std::ios::binary | std::ios::trunc);
    file << registerJson(values);
    file.close();
    if (!file) throw std::system_error(errno, std::generic_category(), beside);
    std::error_code error;
    std::filesystem::rename(beside, path_, error);
    if (error) throw std::system_error(error, path_);
}

} // namespace zorvane::simulator
