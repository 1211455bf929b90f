// SPDX-License-Identifier: MIT
#include "recovery/native_recovery_folder.h"
#include "template/services/native_files.h"
#include "values/file_descriptor.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace zorvane {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view unfinished = ".unfinished";
constexpr std::size_t beginningBytes = 4096;

/// The lock lasts as long as the writer lives, and tells a sweep that somebody is still at it.
bool writeWhole(const std::string& path, std::string_view text) {
    const File_Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    return file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0 && writeAll(file, text) &&
           ::fsync(file.number()) == 0;
}

/// Nobody else may look into a folder that has to be made, nor into those above it that have to be made, too.
void makeFolders(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::exists(folder, error)) return;
    makeFolders(folder.parent_path());
    ::mkdir(folder.c_str(), 0700);
}

bool isAbandoned(const std::string& path) {
    const File_Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

} // namespace

int makeFile(const std::string& path, std::string_view bytes) {
    const File_Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen()) return errno;
    if (writeAll(file, bytes) && (::fsync(file.number()) == 0 || errno == EINVAL)) return 0;
    const int error = errno;
    ::unlink(path.c_str());
    return error;
}

std::string filesFolder(const std::string& recoveryFolder) { return recoveryFolder + "/Saved"; }

Native_Recovery_Folder::Native_Recovery_Folder(std::string folder) : folder_(std::move(folder)) { sweep(); }

bool Native_Recovery_Folder::write(const std::string& name, const std::string& text) {
    makeFolders(folder_);
    const std::string target = native(name);
    const std::string beside = target + std::string(unfinished);
    if (!writeWhole(beside, text) || ::rename(beside.c_str(), target.c_str()) != 0) {
        ::unlink(beside.c_str());
        return false;
    }
    reachDisk();
    return true;
}

void Native_Recovery_Folder::remove(const std::string& name) { ::unlink(native(name).c_str()); }

std::string Native_Recovery_Folder::beginning(const std::string& name) {
    const File_Descriptor file(::open(native(name).c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, beginningBytes> bytes{};
    const ssize_t count = file.isOpen() ? ::read(file.number(), bytes.data(), bytes.size()) : 0;
    return count > 0 ? std::string(bytes.data(), static_cast<std::size_t>(count)) : std::string();
}

std::vector<std::string> Native_Recovery_Folder::list() {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (!name.ends_with(unfinished) && entry->is_regular_file(ignored))
            names.push_back(pathFromNative(name));
    }
    return names;
}

std::string Native_Recovery_Folder::path(const std::string& name) const {
    return pathFromNative(folder_) + "/" + name;
}

std::string Native_Recovery_Folder::native(const std::string& name) const {
    return folder_ + "/" + pathToNative(name);
}

/// A new name in a folder outlasts a power cut only once the folder itself has reached the disk.
/// Not every file system can be asked to.
void Native_Recovery_Folder::reachDisk() const {
    const File_Descriptor folder(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) (void)::fsync(folder.number());
}

void Native_Recovery_Folder::sweep() const {
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
        const std::string path = entry->path().string();
        if (path.ends_with(unfinished) && isAbandoned(path)) ::unlink(path.c_str());
    }
}

} // namespace zorvane
