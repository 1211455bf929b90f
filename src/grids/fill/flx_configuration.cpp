// SPDX-License-Identifier: MIT
#include "grids/fill/flx_configuration.h"

#include "grids/fill/fill_settings.h"
#include "grids/rules/edit_rules.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

constexpr std::int16_t leftButton = 1;

void showField(const Grid_Context& grids, std::int32_t row) {
    PRO_Llena_Settings(grids, toInteger(row), false);
}

void selectWholeRow(VSFlexGrid& grid, std::int32_t row) {
    grid.setRowSel(row);
    grid.setRow(row);
    grid.setCol(1);
    grid.setColSel(grid.Cols() - 1);
    grid.setSelectionHighlight(1);
    grid.Refresh();
}

} // namespace

void FLX_Configuration_RowColChange(const Grid_Context& grids) {
    if (grids.navigation.Form_Resizing) return;
    grids.comm.document.Selected_Field = grids.FLX_Configuration.Row();
    showField(grids, grids.FLX_Configuration.Row());
}

void FLX_Configuration_SelChange(const Grid_Context& grids) {
    if (!grids.navigation.Form_Resizing) showField(grids, grids.FLX_Configuration.Row());
}

void FLX_Configuration_Click(const Grid_Context& grids) { grids.navigation.Skip_Mouse_Select = false; }

void FLX_Configuration_DblClick(const Grid_Context& grids) {
    grids.comm.document.Selected_Field = grids.FLX_Configuration.Row();
    grids.navigation.Skip_Mouse_Select = true;
}

void FLX_Configuration_MouseMove(const Grid_Context& grids, std::int16_t /*Button*/, std::int16_t /*Shift*/,
                                 float X, float Y) {
    if (grids.navigation.Mouse_Track_Off) return;
    grids.navigation.Mouse_X = toInteger(static_cast<double>(X));
    grids.navigation.Mouse_Y = toInteger(static_cast<double>(Y));
}

void FLX_Configuration_MouseUp(const Grid_Context& grids, std::int16_t Button, std::int16_t /*Shift*/,
                               float /*X*/, float /*Y*/) {
    Navigation_State& state = grids.navigation;
    if (Button != leftButton || state.Skip_Mouse_Select) return;
    state.Mouse_Track_Off = false;
    VSFlexGrid& grid = grids.FLX_Configuration;
    const Row_Hit hit =
        rowHit(state.Mouse_Y, Row_Hit_Grid{grid.RowHeight(0), grid.TopRow(), grid.Rows(), grid.Cols()});
    state.Mouse_Row = hit.mouseRow;
    if (!hit.selects) return;
    showField(grids, hit.row());
    selectWholeRow(grid, hit.row());
}

} // namespace zorvane
