// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>

namespace zorvane {

/// "Show", for a line of the message bar: the field is selected in the upper grid, and the cell becomes the
/// current one of the lower grid, where row and column count from 0, with the keyboard. A document or a cell
/// that is there no more leaves all as it is.
[[nodiscard]] Bar_Button showButton(const Grid_Context& grids, std::int32_t field, std::int32_t row,
                                    std::int32_t col);

} // namespace zorvane
