// SPDX-License-Identifier: MIT
#include "grids/fill/show_cell.h"

#include "grids/fill/flx_configuration.h"
#include "grids/rules/value_findings.h"

namespace zorvane {

void showCell(const Grid_Context& grids, const Cell_Place& place) {
    VSFlexGrid& upper = grids.FLX_Configuration;
    VSFlexGrid& lower = grids.FLX_Settings;
    if (!hasCell(grids.comm.document, place) || place.field >= upper.Rows()) return;
    if (grids.fieldNumber() != place.field || grids.comm.document.Selected_Field != place.field) {
        upper.setRow(place.field);
        FLX_Configuration_RowColChange(grids);
    }
    if (place.row >= lower.Rows() || place.column > lower.Cols()) return;
    lower.setRow(place.row);
    lower.setCol(place.column - 1);
    lower.SetFocus();
    grids.windows.showCurrentCell();
}

} // namespace zorvane
