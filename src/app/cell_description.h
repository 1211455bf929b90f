// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"
#include "grids/fill/memory_grid.h"

#include <cstdint>
#include <string>

namespace zorvane::app {

/// What a screen reader is told of a cell of the lower grid beside its text: what its colours say to others.
/// "Modifiable", "Fixed", "Read only", "Writing", "Write failed", "Link lost". Empty for a cell that the
/// document doesn't have.
[[nodiscard]] std::string cellDescription(const Grid_Context& grids, std::int32_t row, std::int32_t col,
                                          const Memory_Grid::Colours& colours);

/// What a cell's tool tip says: the description of a cell that something went wrong with, else nothing.
[[nodiscard]] std::string cellToolTip(const Grid_Context& grids, std::int32_t row, std::int32_t col,
                                      const Memory_Grid::Colours& colours);

} // namespace zorvane::app
