// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "grids/fill/grid_windows.h"
#include "grids/fill/hidden_editors.h"
#include "grids/fill/value_watcher.h"
#include "grids/rules/vsflexgrid.h"

#include <cstdint>

namespace zorvane {

/// Members of the main form that the mouse and the keys of the grids use.
struct Navigation_State {
    bool Form_Resizing = false;    ///< the main form is laying itself out: selection events do nothing
    bool Skip_Mouse_Select = true; ///< the next release of the left button selects no row
    bool Mouse_Track_Off = true;   ///< mouse positions over FLX_Configuration aren't recorded
    std::int16_t Mouse_X = 0;      ///< last mouse position over a grid, twips
    std::int16_t Mouse_Y = 0;
    std::int16_t Mouse_Row = 0; ///< of the row hit test: one above the grid row
};

/// The two grids and all that they work on. Nothing in it is owned.
struct Grid_Context {
    Comm_Context comm;
    VSFlexGrid& FLX_Configuration; ///< the upper grid: one row a field
    VSFlexGrid& FLX_Settings;      ///< the lower grid: the table of the field selected above
    Navigation_State& navigation;
    Hidden_Editors& editors;
    Grid_Windows& windows;
    Value_Watcher* watcher = nullptr; ///< told of what the user's commands did to values; may be null

    /// The field selected in the upper grid. It is asked again at each use, since events served while a write
    /// waits can select another.
    [[nodiscard]] std::int32_t fieldNumber() const { return FLX_Configuration.Row(); }
    [[nodiscard]] Field_Rec& field() const { return comm.document.Fields(fieldNumber()); }
    /// The cell at a row and column of the lower grid, and the definition of its column. Columns of the model
    /// count from 1.
    [[nodiscard]] Cell_Rec& cell(std::int32_t row, std::int32_t col) const {
        return field().Cells(row, col + 1);
    }
    [[nodiscard]] Cell_Rec& definition(std::int32_t col) const { return field().Cells(0, col + 1); }
};

} // namespace zorvane
