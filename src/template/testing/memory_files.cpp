// SPDX-License-Identifier: MIT
#include "template/testing/memory_files.h"

#include "values/code_page.h"

#include <algorithm>
#include <utility>

namespace zorvane::doubles {

namespace {

/// The folder of a path, without the separator; empty for a name alone.
std::string folderOf(const std::string& path) {
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? "" : path.substr(0, separator);
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

class Memory_Writer : public Text_Writer {
  public:
    Memory_Writer(std::string& text, std::size_t limit, Failure kind, std::optional<Failure> onClose)
        : text_(text), room_(limit), kind_(kind), onClose_(onClose) {}

    void writeLine(std::string_view text) override {
        const std::string line = std::string(text) + "\r\n";
        text_ += line.substr(0, room_);
        if (line.size() > room_) {
            room_ = 0;
            throw Run_Time_Failure(kind_);
        }
        room_ -= line.size();
    }

    void close() override {
        if (onClose_) throw Run_Time_Failure(*onClose_);
    }

  private:
    std::string& text_;
    std::size_t room_;
    Failure kind_;
    std::optional<Failure> onClose_;
};

} // namespace

void Memory_Files::put(const std::string& path, std::string text) {
    folders_.insert(folderOf(path));
    files_[path] = std::move(text);
}

std::optional<std::string> Memory_Files::text(const std::string& path) const {
    const auto file = files_.find(path);
    return file == files_.end() ? std::nullopt : std::optional(file->second);
}

void Memory_Files::failAfter(std::size_t bytes, Failure kind) {
    limit_ = bytes;
    writeFailure_ = kind;
}

std::string Memory_Files::found(const std::string& path) const {
    if (files_.contains(path)) return path;
    const std::string wanted = upperCase(nameOf(path));
    const auto match = std::find_if(files_.begin(), files_.end(), [&](const auto& file) {
        return folderOf(file.first) == folderOf(path) && upperCase(nameOf(file.first)) == wanted;
    });
    return match == files_.end() ? path : match->first;
}

bool Memory_Files::exists(const std::string& path) { return files_.contains(found(path)); }

std::optional<std::string> Memory_Files::bytes(const std::string& path) {
    const std::string meant = found(path);
    return refused_.contains(meant) ? std::nullopt : text(meant);
}

std::string Memory_Files::read(const std::string& path) {
    const std::string meant = found(path);
    if (!files_.contains(meant)) throw Run_Time_Failure(Failure::FileNotFound);
    if (refused_.contains(meant)) throw Run_Time_Failure(Failure::PermissionDenied);
    return files_.at(meant);
}

std::unique_ptr<Text_Writer> Memory_Files::create(const std::string& path) {
    const std::string meant = found(path);
    const std::string folder = folderOf(meant);
    if (!folder.empty() && !folders_.contains(folder)) throw Run_Time_Failure(Failure::PathNotFound);
    if (folders_.contains(meant)) throw Run_Time_Failure(Failure::PathFileAccess);
    if (refused_.contains(meant)) throw Run_Time_Failure(Failure::PermissionDenied);
    std::string& text = files_[meant];
    text.clear();
    return std::make_unique<Memory_Writer>(text, limit_, writeFailure_, closeFailure_);
}

std::vector<std::string> Memory_Files::list(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& [path, text] : files_)
        if (folderOf(path) == folder) names.push_back(nameOf(path));
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::pair(upperCase(a), a) < std::pair(upperCase(b), b);
    });
    return names;
}

} // namespace zorvane::doubles
