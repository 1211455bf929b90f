// SPDX-License-Identifier: MIT
#include "survey/traffic/native_traffic_files.h"

#include <filesystem>

namespace zorvane::survey {

bool Native_Traffic_Files::exists(const std::string& name) const {
    std::error_code ignored;
    return std::filesystem::exists(std::filesystem::path(name), ignored);
}

bool Native_Traffic_Files::begin(const std::string& name) {
    sync();
    file_.reset(std::fopen(name.c_str(), "wb"));
    if (!file_) return false;
    if (!disk_ || disk_->failed()) disk_.emplace();
    disk_->beginFolderOf(name);
    return true;
}

bool Native_Traffic_Files::write(std::string_view text) {
    return file_ && !disk_->failed() &&
           std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size() &&
           std::fflush(file_.get()) == 0;
}

void Native_Traffic_Files::sync() {
    if (file_) disk_->begin(file_.get());
}

void Native_Traffic_Files::end() {
    sync();
    file_.reset();
}

} // namespace zorvane::survey
