// SPDX-License-Identifier: MIT
// What a run writes is on disk when the call returns: the file's bytes, and its name in the folder.
#include "commission/folder/native_runs.h"
#include "values/file_descriptor.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace zorvane::commission {

namespace fs = std::filesystem;

namespace {

constexpr mode_t ownFolder = 0700;
constexpr mode_t ownFile = 0600;

std::string reason() { return std::strerror(errno); }

/// A new name in a folder is on disk once the folder is.
std::string syncFolder(const std::string& path) {
    const File_Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder.isOpen() && ::fsync(folder.number()) == 0 ? std::string() : reason();
}

std::string makeFolders(const fs::path& path) {
    if (path.empty() || fs::is_directory(path)) return {};
    if (std::string why = makeFolders(path.parent_path()); !why.empty()) return why;
    return ::mkdir(path.c_str(), ownFolder) == 0 || errno == EEXIST ? std::string() : reason();
}

/// One writer a folder: the lock on the journal lasts as long as it lives.
class Native_Folder final : public Run_Folder {
  public:
    Native_Folder(std::string path, std::string name, int journal)
        : path_(std::move(path)), name_(std::move(name)), journal_(journal) {}

    [[nodiscard]] std::string name() const override { return name_; }

    [[nodiscard]] std::string put(std::string_view file, std::string_view bytes) override {
        const std::string target = path_ + "/" + std::string(file);
        const std::string fresh = target + ".new";
        {
            const File_Descriptor out(
                ::open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, ownFile));
            if (!out.isOpen() || !writeAll(out, bytes) || ::fsync(out.number()) != 0) return reason();
        }
        if (::rename(fresh.c_str(), target.c_str()) != 0) return reason();
        return syncFolder(path_);
    }

    [[nodiscard]] std::string append(std::string_view line) override {
        const std::string text = std::string(line) + "\n";
        if (!writeAll(journal_, text) || ::fsync(journal_.number()) != 0) return reason();
        return {};
    }

  private:
    std::string path_;
    std::string name_;
    File_Descriptor journal_;
};

/// What a power cut left of a line ends there, so that the next one begins a line of its own.
std::string endTornLine(int journal) {
    const off_t size = ::lseek(journal, 0, SEEK_END);
    if (size <= 0) return {};
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (::pread(journal, bytes.data(), bytes.size(), 0) != size) return reason();
    const std::size_t end = bytes.rfind('\n');
    const off_t whole = end == std::string::npos ? 0 : static_cast<off_t>(end) + 1;
    return whole == size || ::ftruncate(journal, whole) == 0 ? std::string() : reason();
}

bool isPlainName(std::string_view name) {
    return !name.empty() && name.front() != '.' && name.find('/') == std::string_view::npos;
}

} // namespace

std::vector<std::string> Native_Runs::names() const {
    std::vector<std::string> all;
    std::error_code error;
    for (fs::directory_iterator at(root_, error), end; !error && at != end; at.increment(error))
        if (at->is_directory(error) && isPlainName(at->path().filename().string()))
            all.push_back(at->path().filename().string());
    return all;
}

Opened_Run Native_Runs::make(const std::string& stem) {
    if (std::string why = makeFolders(root_); !why.empty()) return {nullptr, why};
    for (int number = 1;; ++number) {
        const std::string name = stem + "-" + std::to_string(number);
        if (::mkdir(folderOf(name).c_str(), ownFolder) == 0) {
            if (std::string why = syncFolder(root_); !why.empty()) return {nullptr, why};
            return open(name);
        }
        if (errno != EEXIST) return {nullptr, reason()};
    }
}

Opened_Run Native_Runs::open(const std::string& name) {
    const std::string path = folderOf(name);
    if (!isPlainName(name)) return {nullptr, std::strerror(ENOENT)};
    const std::string journal = path + "/" + std::string(journalFile);
    const int file = ::open(journal.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, ownFile);
    if (file < 0) return {nullptr, reason()};
    auto folder = std::make_unique<Native_Folder>(path, name, file);
    if (::flock(file, LOCK_EX | LOCK_NB) != 0) return {nullptr, "another program is at work on this run"};
    if (std::string why = endTornLine(file); !why.empty()) return {nullptr, why};
    if (std::string why = syncFolder(path); !why.empty()) return {nullptr, why};
    return {std::move(folder), {}};
}

std::optional<std::string> Native_Runs::read(const std::string& name, std::string_view file) const {
    if (!isPlainName(name)) return std::nullopt;
    std::ifstream in(folderOf(name) + "/" + std::string(file), std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream text;
    text << in.rdbuf();
    return std::move(text).str();
}

void Native_Runs::remove(const std::string& name) {
    if (!isPlainName(name)) return;
    std::error_code error;
    fs::remove_all(folderOf(name), error);
}

} // namespace zorvane::commission
