// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"
#include "template/model/cell_place.h"

namespace zorvane {

/// Goes to a cell as the user would: its field in the upper grid, itself in the lower one, with the keyboard.
/// A cell that the document or the grid doesn't have stays where it is.
void showCell(const Grid_Context& grids, const Cell_Place& place);

} // namespace zorvane
