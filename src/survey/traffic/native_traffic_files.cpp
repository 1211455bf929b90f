// SPDX-License-Identifier: MIT
#include "survey/traffic/native_traffic_files.h"

#include <filesystem>

namespace zorvane::survey {

bool Native_Traffic_Files::exists(const std::string& name) const {
    std::error_code ignored;
    return std::filesystem::exists(std::filesystem::path(name), ignored);
}

bool Native_Traffic_Files::begin(const std::string& name) {
    file_ = std::ofstream(name, std::ios::binary | std::ios::trunc);
    return file_.good();
}

bool Native_Traffic_Files::write(std::string_view text) {
    file_.write(text.data(), static_cast<std::streamsize>(text.size()));
    file_.flush();
    return file_.good();
}

} // namespace zorvane::survey
