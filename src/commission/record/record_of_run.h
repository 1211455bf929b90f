// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/run_store.h"
#include "commission/record/record.h"

#include <optional>
#include <string>

namespace zorvane::commission {

/// What a run's folder tells of it. Head, tick list and deviations aren't in it. Nothing when there is no
/// such run, or its head or plan can't be read. A run without a result was interrupted: a value whose write
/// had begun is unknown, any other one wasn't sent.
[[nodiscard]] std::optional<Record> recordOfRun(const Run_Store& runs, const std::string& name);

} // namespace zorvane::commission
