// SPDX-License-Identifier: MIT
#include "reports/export/replaced_file.h"
#include "template/services/native_files.h"

#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <set>
#include <unistd.h>
#include <utility>
#include <vector>

namespace zorvane {

namespace fs = std::filesystem;

namespace {

constexpr unsigned ownOnly = 0600;
constexpr unsigned asTheUserWishes = 0666; ///< less what the user's mask takes away

[[noreturn]] void fail(int error) { throw Run_Time_Failure(writingFailure(error)); }

File_Descriptor opened(const std::string& path, int flags, unsigned mode = 0) {
    return File_Descriptor(::open(path.c_str(), flags | O_CLOEXEC, mode));
}

std::string folderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

/// Where a chain of links ends, whether anything is there or not.
std::string endOfLinks(const std::string& path) {
    constexpr int longestChain = 40;
    fs::path place = path;
    for (int step = 0; step < longestChain; ++step) {
        std::error_code noLink;
        const fs::path target = fs::read_symlink(place, noLink);
        if (noLink) break;
        place = place.parent_path() / target;
    }
    return place.string();
}

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

std::optional<std::set<std::string>> attributesOf(int file) {
    const ssize_t room = ::flistxattr(file, nullptr, 0);
    std::string names(room > 0 ? static_cast<std::size_t>(room) : 0, '\0');
    const ssize_t length = room > 0 ? ::flistxattr(file, names.data(), names.size()) : room;
    if (length < 0 && errno != ENOTSUP) return std::nullopt;
    std::set<std::string> found;
    for (std::size_t at = 0; length > 0 && at < static_cast<std::size_t>(length);) {
        found.emplace(names.c_str() + at);
        at = names.find('\0', at) + 1;
    }
    return found;
}

bool copyAttribute(int from, int to, const char* name) {
    std::vector<char> value(65536); // the most that the system takes
    const ssize_t size = ::fgetxattr(from, name, value.data(), value.size());
    return size >= 0 && ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0) == 0;
}

/// Access lists, labels and whatever else a file carries.
bool giveAttributes(int from, int to) {
    const auto wanted = attributesOf(from);
    const auto there = attributesOf(to);
    if (!wanted || !there) return false;
    return std::all_of(wanted->begin(), wanted->end(),
                       [&](const std::string& name) { return copyAttribute(from, to, name.c_str()); }) &&
           std::all_of(there->begin(), there->end(), [&](const std::string& name) {
               return wanted->count(name) > 0 || ::fremovexattr(to, name.c_str()) == 0;
           });
}

void writeOrFail(const File_Descriptor& file, std::string_view bytes) {
    if (!writeAll(file, bytes)) fail(errno);
}

/// Pipes and devices can't be asked to.
void awaitDisk(int file) {
    if (::fsync(file) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS) fail(errno);
}

/// Claims the room for bytes before the first of them goes over those that are there.
void claimRoom(int file, off_t before, off_t wanted) {
    if (wanted <= before) return;
    const int error = ::posix_fallocate(file, 0, wanted);
    if (error != ENOSPC && error != EDQUOT && error != EFBIG) return;
    if (::ftruncate(file, before) != 0) fail(errno);
    fail(error);
}

std::string contents(int file) {
    std::string bytes;
    std::vector<char> buffer(65536);
    off_t place = 0;
    for (;;) {
        const ssize_t count = ::pread(file, buffer.data(), buffer.size(), place);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail(errno);
        if (count == 0) return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        place += count;
    }
}

} // namespace

Replaced_File::Replaced_File(const std::string& nativePath)
    : place_(endOfLinks(nativePath)), before_(std::make_unique<struct stat>()) {
    struct stat meant {};
    // What the system's own links lead to, such as /dev/stdout, can have no name at all.
    if (::stat(nativePath.c_str(), &meant) == 0) {
        replaceable_ = ::stat(place_.c_str(), before_.get()) == 0 && isSameFile(meant, *before_);
        if (!replaceable_) place_ = nativePath;
        original_ = opened(place_, O_WRONLY);
        if (!original_.isOpen() || ::fstat(original_.number(), before_.get()) != 0) fail(errno);
        replaceable_ = replaceable_ && S_ISREG(before_->st_mode) && before_->st_nlink == 1;
    } else if (errno != ENOENT) {
        fail(errno);
    }
    if (replaceable_) openBeside();
    if (beside_.isOpen() || original_.isOpen()) return;
    original_ = opened(place_, O_WRONLY | O_CREAT | O_EXCL, asTheUserWishes);
    if (!original_.isOpen()) fail(errno);
    madeInPlace_ = true;
}

Replaced_File::~Replaced_File() {
    if (!besideName_.empty()) ::unlink(besideName_.c_str());
    if (madeInPlace_) ::unlink(place_.c_str());
}

void Replaced_File::openBeside() {
    const unsigned mode = original_.isOpen() ? ownOnly : asTheUserWishes;
    File_Descriptor file = unnamedFile(mode);
    if (!file.isOpen()) file = namedFile(mode);
    if (file.isOpen() && (!original_.isOpen() || looksLikeOriginal(file))) beside_ = std::move(file);
}

/// One without a name goes by itself, however the program ends.
File_Descriptor Replaced_File::unnamedFile(unsigned mode) const {
#ifdef O_TMPFILE
    return opened(folderOf(place_), O_TMPFILE | O_RDWR, mode);
#else
    return {};
#endif
}

File_Descriptor Replaced_File::namedFile(unsigned mode) {
    File_Descriptor file;
    takeFreeName([&](const std::string& name) {
        file = opened(name, O_RDWR | O_CREAT | O_EXCL, mode);
        return file.isOpen();
    });
    return file;
}

/// `make` makes a file of a name that nothing has yet. False when it can't.
bool Replaced_File::takeFreeName(const std::function<bool(const std::string& name)>& make) {
    constexpr int tries = 100;
    const std::string stem = folderOf(place_) + "/.zorvane-" + std::to_string(::getpid()) + "-";
    for (int number = 0; number < tries; ++number) {
        const std::string name = stem + std::to_string(number) + ".part";
        if (make(name)) besideName_ = name;
        if (!besideName_.empty() || errno != EEXIST) break;
    }
    return !besideName_.empty();
}

/// Gives the file the owner, the attributes and the permissions of what is there, as far as it can be done.
bool Replaced_File::looksLikeOriginal(const File_Descriptor& file) const {
    struct stat made {};
    if (::fstat(file.number(), &made) != 0) return false;
    const bool owned = made.st_uid == before_->st_uid && made.st_gid == before_->st_gid;
    return (owned || ::fchown(file.number(), before_->st_uid, before_->st_gid) == 0) &&
           giveAttributes(original_.number(), file.number()) &&
           ::fchmod(file.number(), before_->st_mode & 07777U) == 0;
}

void Replaced_File::write(std::string_view bytes) {
    if (beside_.isOpen())
        writeOrFail(beside_, bytes);
    else
        kept_ += bytes;
}

void Replaced_File::finish() {
    if (beside_.isOpen()) {
        awaitDisk(beside_.number());
        if (moveIntoPlace()) return;
        kept_ = contents(beside_.number());
    }
    writeInPlace();
}

/// False where the system allows no other file in that place.
bool Replaced_File::moveIntoPlace() {
    const std::string unnamed = "/proc/self/fd/" + std::to_string(beside_.number());
    const auto giveName = [&unnamed](const std::string& name) {
        return ::linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    if (besideName_.empty() && !takeFreeName(giveName)) return false;
    if (std::rename(besideName_.c_str(), place_.c_str()) != 0) return false;
    besideName_.clear();
    const File_Descriptor folder = opened(folderOf(place_), O_RDONLY | O_DIRECTORY);
    if (folder.isOpen())
        ::fsync(folder.number()); // the name's own way to the disk, where it can be asked for
    return true;
}

void Replaced_File::writeInPlace() {
    if (!original_.isOpen()) {
        original_ = opened(place_, O_WRONLY | O_CREAT | O_EXCL, asTheUserWishes);
        if (!original_.isOpen()) fail(errno);
        madeInPlace_ = true;
    }
    const int file = original_.number();
    const bool regular = madeInPlace_ || S_ISREG(before_->st_mode);
    const auto size = static_cast<off_t>(kept_.size());
    if (regular) claimRoom(file, before_->st_size, size);
    writeOrFail(original_, kept_);
    if (regular && ::ftruncate(file, size) != 0) fail(errno);
    awaitDisk(file);
    madeInPlace_ = false;
}

} // namespace zorvane
