// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>

namespace zorvane {

/// The handlers of the lower grid. `Row` and `Col` are grid coordinates, from 0, row 0 being the heading. A
/// row or column that the field doesn't have is failure 9.

/// The grid is about to offer an editor on a cell, also on a plain move onto it. Refuses in a read-only
/// document, with a line in panel 4; else makes the editor a list or free text and sets its length limit. The
/// limit of an ASCII cell stays in force on later cells until another ASCII cell changes it.
void FLX_Settings_BeforeEdit(const Grid_Context& grids, std::int32_t Row, std::int32_t Col, bool& Cancel);

/// An edit really starts: refuses, in silence, in a column that isn't modifiable.
void FLX_Settings_StartEdit(const Grid_Context& grids, std::int32_t Row, std::int32_t Col, bool& Cancel);

/// An edit ended with a text or an entry accepted by the editor: hands it to the commit.
void FLX_Settings_AfterEdit(const Grid_Context& grids, std::int32_t Row, std::int32_t Col);

/// The user dragged a column's border: the model keeps the new width, the document doesn't count as changed.
/// A width that can't be kept is dropped.
void FLX_Settings_AfterUserResize(const Grid_Context& grids, std::int32_t Row, std::int32_t Col);

/// Home with Shift, Ctrl and Alt opens the form `FrmDebug`.
void FLX_Settings_KeyUp(const Grid_Context& grids, std::int16_t KeyCode, std::int16_t Shift);

/// Records the mouse position, in twips, and starts the column tip.
void FLX_Settings_MouseMove(const Grid_Context& grids, std::int16_t Button, std::int16_t Shift, float X,
                            float Y);

} // namespace zorvane
