// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>

namespace zorvane {

/// The handlers of the upper grid, which is a selector and is never edited.

/// The current row changed, by keys: it becomes the selected field, and its settings are shown.
void FLX_Configuration_RowColChange(const Grid_Context& grids);

/// The selection changed: its settings are shown, and the selected field stays.
void FLX_Configuration_SelChange(const Grid_Context& grids);

/// The next release of the left button may select a row again.
void FLX_Configuration_Click(const Grid_Context& grids);

/// The current row becomes the selected field; the release that ends the double click selects nothing.
void FLX_Configuration_DblClick(const Grid_Context& grids);

/// Records the mouse position, in twips, unless that is off.
void FLX_Configuration_MouseMove(const Grid_Context& grids, std::int16_t Button, std::int16_t Shift, float X,
                                 float Y);

/// Selects the row at the recorded mouse position across all columns, and shows its settings.
void FLX_Configuration_MouseUp(const Grid_Context& grids, std::int16_t Button, std::int16_t Shift, float X,
                               float Y);

} // namespace zorvane
