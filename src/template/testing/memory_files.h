// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/files.h"
#include "values/run_time_failure.h"

#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::doubles {

/// Files in memory, with the folders that a test makes. A test may break them: refuse a path, or let writing
/// fail after so many bytes.
class Memory_Files : public Files {
  public:
    static constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();

    // The test's side.

    /// Puts a file, and its folder, as they stand.
    void put(const std::string& path, std::string text);
    /// Somebody removes a file, by its exact path.
    void remove(const std::string& path) { files_.erase(path); }
    void addFolder(const std::string& folder) { folders_.insert(folder); }
    /// The text of a file by its exact path; nothing when there is none.
    [[nodiscard]] std::optional<std::string> text(const std::string& path) const;
    /// Reading and creating that path is failure 70 from now on.
    void refuse(const std::string& path) { refused_.insert(path); }
    /// Every file created from now on takes that many bytes; the write that goes beyond them is `kind`.
    void failAfter(std::size_t bytes, Failure kind = Failure::DiskFull);
    /// Every file created from now on can't be closed.
    void failOnClose(Failure kind = Failure::DiskFull) { closeFailure_ = kind; }

    [[nodiscard]] bool exists(const std::string& path) override;
    [[nodiscard]] std::string read(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> bytes(const std::string& path) override;
    [[nodiscard]] std::unique_ptr<Text_Writer> create(const std::string& path) override;
    [[nodiscard]] std::vector<std::string> list(const std::string& folder) override;

  private:
    /// The path of the file that is meant: the exact one, else one that differs in letter case only.
    [[nodiscard]] std::string found(const std::string& path) const;

    std::map<std::string, std::string> files_;
    std::set<std::string> folders_;
    std::set<std::string> refused_;
    std::size_t limit_ = noLimit;
    Failure writeFailure_ = Failure::DiskFull;
    std::optional<Failure> closeFailure_;
};

} // namespace zorvane::doubles
