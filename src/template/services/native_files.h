// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/files.h"
#include "values/run_time_failure.h"

#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// A path of this platform (UTF-8 bytes) as the system's text, and back. What Windows-1252 can't say, a
/// character beyond the code page or a byte that is no UTF-8, is kept as its number between two bytes of the
/// code page that stand for no character, so the way back is exact. `pathToNative` serves for messages that
/// name a path, too.
[[nodiscard]] std::string pathFromNative(std::string_view native);
[[nodiscard]] std::string pathToNative(std::string_view text);

/// The failure for a system error (`errno`) of a file that is read: 53, 61, 70 or 75; of one that is made or
/// written a missing file means a missing folder, 76.
[[nodiscard]] Failure readingFailure(int error);
[[nodiscard]] Failure writingFailure(int error);

/// The files of this machine.
class Native_Files : public Files {
  public:
    [[nodiscard]] bool exists(const std::string& path) override;
    [[nodiscard]] std::string read(const std::string& path) override;
    /// Nothing also of a file that is too large for a document, 64 MB.
    [[nodiscard]] std::optional<std::string> bytes(const std::string& path) override;
    [[nodiscard]] std::unique_ptr<Text_Writer> create(const std::string& path) override;
    [[nodiscard]] std::vector<std::string> list(const std::string& folder) override;

    /// The path of the existing file that `path` means, letter case of its name ignored, or `path` itself.
    [[nodiscard]] std::string found(const std::string& path) const;
};

} // namespace zorvane
