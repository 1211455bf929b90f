// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zorvane::ui {

/// The widths of a table's columns in a room, all in pixels: as wanted where that fits, else each column
/// gives up the same share of what it has above its least. When even the least ones don't fit, the least
/// ones. REQUIRES: as many least ones as wanted ones.
[[nodiscard]] std::vector<int> fittedWidths(const std::vector<int>& wanted, const std::vector<int>& least,
                                            int room);

} // namespace zorvane::ui
