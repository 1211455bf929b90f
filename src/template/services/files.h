// SPDX-License-Identifier: MIT
#pragma once

#include "values/run_time_failure.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// Between the names of a path.
inline constexpr char folderSeparator = '/';

/// A text file being written, line by line; each line ends in CR LF. A line that can't be written, or an end
/// that can't be reached, is a run-time failure (61 disk full, 75 path/file access). Destroying it without
/// `close` closes it and reports nothing.
class Text_Writer {
  public:
    virtual ~Text_Writer() = default;
    virtual void writeLine(std::string_view text) = 0;
    virtual void close() = 0;
};

/// The files of the system. Paths are Windows-1252 text with the platform's folder separator. Letter case
/// doesn't matter in the file's name: an existing file whose name matches in any case is meant, the exact one
/// first; only when there is none is the name used as given.
class Files {
  public:
    virtual ~Files() = default;
    /// Whether a normal file of that name is there.
    [[nodiscard]] virtual bool exists(const std::string& path) = 0;
    /// The whole file. Failures: 53 no such file, 70 no permission, 75 anything else.
    [[nodiscard]] virtual std::string read(const std::string& path) = 0;
    /// The same for who only wants to look: nothing where there is no such file or it can't be read.
    [[nodiscard]] virtual std::optional<std::string> bytes(const std::string& path) {
        if (!exists(path)) return std::nullopt;
        std::optional<std::string> text;
        ignoringFailure([&] { text = read(path); });
        return text;
    }
    /// A file created again, or overwritten. Failures: 70, 75, 76 no such folder.
    [[nodiscard]] virtual std::unique_ptr<Text_Writer> create(const std::string& path) = 0;
    /// The names of all files of a folder, in the order of their names, case ignored.
    [[nodiscard]] virtual std::vector<std::string> list(const std::string& folder) = 0;
};

} // namespace zorvane
