// SPDX-License-Identifier: MIT
#include "template/services/native_files.h"

#include "template/services/file_limits.h"
#include "template/services/file_names.h"
#include "values/code_page.h"
#include "values/run_time_failure.h"
#include "values/utf8.h"

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace zorvane {

namespace fs = std::filesystem;

namespace {

/// Brackets of an escaped character and of an escaped byte: bytes that Windows-1252 leaves without a
/// character.
constexpr char characterMark = '\x81';
constexpr char byteMark = '\x8D';

constexpr std::uintmax_t largestDocument = 64 * 1024 * 1024; // bytes

void appendEscape(std::string& out, char mark, std::uint32_t number) {
    char digits[12];
    std::snprintf(digits, sizeof digits, "%" PRIX32, number);
    out += mark;
    out += digits;
    out += mark;
}

bool isMark(char c) { return c == characterMark || c == byteMark; }

fs::path nativePath(const std::string& path) { return fs::path(pathToNative(path)); }

struct File_Closer {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): this is the owner
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File_Handle = std::unique_ptr<std::FILE, File_Closer>;

class Native_Writer : public Text_Writer {
  public:
    explicit Native_Writer(File_Handle file) : file_(std::move(file)) {}

    void writeLine(std::string_view text) override {
        put(text);
        put("\r\n");
    }

    /// A file counts as written once it would outlast a power cut.
    void close() override {
        if (!file_) return;
        if (std::fflush(file_.get()) != 0 || !reachedDisk()) throw Run_Time_Failure(writingFailure(errno));
        if (std::fclose(file_.release()) != 0) throw Run_Time_Failure(writingFailure(errno));
    }

  private:
    void put(std::string_view text) {
        if (std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size())
            throw Run_Time_Failure(writingFailure(errno));
    }

    /// Pipes and devices can't be asked to.
    [[nodiscard]] bool reachedDisk() const {
        return syncToDisk(file_.get()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
    }

    File_Handle file_;
};

} // namespace

Failure readingFailure(int error) {
    switch (error) {
    case ENOENT:
        return Failure::FileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return Failure::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
        return Failure::DiskFull;
    default:
        return Failure::PathFileAccess;
    }
}

Failure writingFailure(int error) {
    return error == ENOENT || error == ENOTDIR ? Failure::PathNotFound : readingFailure(error);
}

std::string pathFromNative(std::string_view native) {
    std::string out;
    for (std::size_t at = 0; at < native.size();) {
        const std::size_t start = at;
        const char32_t point = takeUtf8(native, at);
        if (point == malformedUtf8) {
            appendEscape(out, byteMark, static_cast<unsigned char>(native[start]));
            continue;
        }
        bool whole = false;
        const std::string text = fromUtf8(native.substr(start, at - start), &whole);
        if (whole && !isMark(text[0]))
            out += text;
        else
            appendEscape(out, characterMark, point);
    }
    return out;
}

std::string pathToNative(std::string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = isMark(text[at]) ? text.find(text[at], at + 1) : std::string_view::npos;
        if (end == std::string_view::npos) {
            out += toUtf8(text.substr(at++, 1));
            continue;
        }
        const auto number = static_cast<unsigned>(
            std::strtoul(std::string(text.substr(at + 1, end - at - 1)).c_str(), nullptr, 16));
        if (text[at] == byteMark)
            out += static_cast<char>(number);
        else
            appendUtf8(out, number);
        at = end + 1;
    }
    return out;
}

std::string Native_Files::found(const std::string& path) const {
    std::error_code error;
    const fs::path exact = nativePath(path);
    const fs::file_status status = fs::status(exact, error);
    if (fs::exists(status) && !fs::is_directory(status)) return path;
    const fs::path folder = exact.has_parent_path() ? exact.parent_path() : fs::path(".");
    const std::string wanted = upperCase(pathFromNative(exact.filename().string()));
    std::vector<std::string> matches;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        const std::string name = pathFromNative(entry->path().filename().string());
        if (upperCase(name) == wanted && !entry->is_directory(ignored)) matches.push_back(name);
    }
    if (matches.empty()) return path;
    return std::string(splitPath(path).folder) + *std::min_element(matches.begin(), matches.end());
}

bool Native_Files::exists(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(nativePath(found(path)), error);
}

std::string Native_Files::read(const std::string& path) {
    const File_Handle file(std::fopen(nativePath(found(path)).c_str(), "rb"));
    if (!file) throw Run_Time_Failure(readingFailure(errno));
    std::string text;
    char buffer[65536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get()))
        text.append(buffer, count);
    if (std::ferror(file.get()) != 0) throw Run_Time_Failure(Failure::PathFileAccess);
    return text;
}

std::optional<std::string> Native_Files::bytes(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(nativePath(found(path)), error);
    if (error || size > largestDocument) return std::nullopt;
    return Files::bytes(path);
}

std::unique_ptr<Text_Writer> Native_Files::create(const std::string& path) {
    File_Handle file(std::fopen(nativePath(found(path)).c_str(), "wb"));
    if (!file) throw Run_Time_Failure(writingFailure(errno));
    return std::make_unique<Native_Writer>(std::move(file));
}

std::vector<std::string> Native_Files::list(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(nativePath(folder), error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored))
            names.push_back(pathFromNative(entry->path().filename().string()));
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::pair(upperCase(a), a) < std::pair(upperCase(b), b);
    });
    return names;
}

} // namespace zorvane
