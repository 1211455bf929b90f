// SPDX-License-Identifier: MIT
#pragma once

#include "values/run_time_failure.h"

#include <utility>

namespace zorvane::doubles {

/// Runs one statement and gives the number of the run-time failure that it raised, 0 for none.
template <class Statement> [[nodiscard]] int failureNumber(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
    } catch (const Run_Time_Failure& failure) {
        return failure.number();
    }
    return 0;
}

} // namespace zorvane::doubles
