// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/journal.h"
#include "compare/comparison.h"

namespace zorvane::commission {

/// How many rows have which sign, by the signs' words.
[[nodiscard]] Json countsJson(const compare::Counts& counts);

/// A row with its place, names, both sides and its sign.
[[nodiscard]] Json rowJson(const compare::Row& row);

} // namespace zorvane::commission
