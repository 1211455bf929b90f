// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane::app {

/// Whether a cell of the lower grid takes a text of several cells or lines as one line.
[[nodiscard]] bool takesBlock(const Grid_Context& grids, std::int32_t row, std::int32_t col);

/// Tells in the message bar, with buttons for what else can be done, that a character, "U+03A9", wasn't taken
/// into a cell of the lower grid; that a text of several cells wasn't, where `character` is empty.
void tellRefused(const Grid_Context& grids, std::int32_t row, std::int32_t col, const std::string& character,
                 std::vector<Bar_Button> buttons = {});

/// Something was taken: takes that line back.
void withdrawRefused(const Grid_Context& grids);

} // namespace zorvane::app
