// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <utility>

namespace zorvane {

/// The kinds of run-time failure, under the numbers that the user sees.
enum class Failure : int {
    InvalidCall = 5,
    Overflow = 6,
    Subscript = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// The system's own wording for a kind, as it stands in messages: "Subscript out of range".
[[nodiscard]] const char* failureText(Failure kind) noexcept;

/// A bad index, a type mismatch, an overflow or a file that can't be used. It unwinds to the nearest handler;
/// most commands have none, so what was done before the failing statement stays.
class Run_Time_Failure : public std::runtime_error {
  public:
    explicit Run_Time_Failure(Failure kind) : Run_Time_Failure(static_cast<int>(kind), failureText(kind)) {}
    Run_Time_Failure(int number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    [[nodiscard]] int number() const noexcept { return number_; }
    [[nodiscard]] const char* description() const noexcept { return what(); }

  private:
    int number_;
};

/// Runs one statement and drops a run-time failure of it; other exceptions pass. True when the statement
/// ended.
template <class Statement> bool ignoringFailure(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const Run_Time_Failure&) {
        return false;
    }
}

} // namespace zorvane
