// SPDX-License-Identifier: MIT
#pragma once

#include "values/run_time_failure.h"

#include <optional>
#include <string>
#include <utility>

namespace zorvane::ctl {

/// A run-time failure as the user is told of it.
struct Failure_Note {
    int number = 0;
    std::string description;
};

/// A failure that is known without running anything.
[[nodiscard]] inline Failure_Note noteOf(Failure failure) {
    return {static_cast<int>(failure), failureText(failure)};
}

/// Runs one step and keeps its run-time failure.
template <class Statement> [[nodiscard]] std::optional<Failure_Note> failureOf(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return std::nullopt;
    } catch (const Run_Time_Failure& failure) {
        return Failure_Note{failure.number(), failure.description()};
    }
}

} // namespace zorvane::ctl
