// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::commission {

// The files of a run's folder. docs/run-folder.md tells what stands in each.
inline constexpr std::string_view runFile = "run.json";
inline constexpr std::string_view planFile = "plan.json";
inline constexpr std::string_view beforeFile = "before.json";
inline constexpr std::string_view journalFile = "journal";
inline constexpr std::string_view afterFile = "after.json";
inline constexpr std::string_view resultFile = "result.json";
inline constexpr std::string_view restoredFile = "restored";

/// Whether a run's file says that what was there before was put back. It is emptied when the run goes on.
[[nodiscard]] inline bool isRestored(const std::optional<std::string>& restoredBytes) {
    return restoredBytes && !restoredBytes->empty();
}

/// The folder of one run, open for writing. What a call has taken is on disk when it returns.
class Run_Folder {
  public:
    virtual ~Run_Folder() = default;
    [[nodiscard]] virtual std::string name() const = 0;
    /// Writes a file as a whole: nobody ever finds half of it. Why it couldn't, for people; empty when it
    /// did.
    [[nodiscard]] virtual std::string put(std::string_view file, std::string_view bytes) = 0;
    /// Puts a line, without its end, after the journal's others. The same result.
    [[nodiscard]] virtual std::string append(std::string_view line) = 0;
};

/// A folder, or why there is none.
struct Opened_Run {
    std::unique_ptr<Run_Folder> folder;
    std::string why; ///< for people
};

/// All runs of a user.
class Run_Store {
  public:
    virtual ~Run_Store() = default;
    /// Where they lie, for people.
    [[nodiscard]] virtual std::string place() const = 0;
    /// The names of all folders, in any order.
    [[nodiscard]] virtual std::vector<std::string> names() const = 0;
    /// Makes a folder under the first free name of "stem-1", "stem-2" and so on.
    [[nodiscard]] virtual Opened_Run make(const std::string& stem) = 0;
    /// Opens one that is there, to go on with it.
    [[nodiscard]] virtual Opened_Run open(const std::string& name) = 0;
    /// A file's bytes; nothing when it isn't there or can't be read.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string& name,
                                                          std::string_view file) const = 0;
    virtual void remove(const std::string& name) = 0;
};

} // namespace zorvane::commission
