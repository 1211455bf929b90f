// SPDX-License-Identifier: MIT
#include "app/edit/edit_state.h"

#include "comm/main_form/title.h"
#include "grids/rules/cell_fill.h"

namespace zorvane::app {

namespace {

/// As the filling of the page would show it, without a move of the current cell.
void showCellText(const Grid_Context& grids, const Cell_Place& place) {
    VSFlexGrid& grid = grids.FLX_Settings;
    if (place.row >= grid.Rows() || place.column > grid.Cols()) return;
    ignoringFailure([&] {
        const Cell_Table& cells = grids.comm.document.Fields(place.field).Cells;
        if (const auto shown = offlineFill(cells(place.row, place.column)).shown)
            grid.setTextMatrix(place.row, place.column - 1, *shown);
    });
}

} // namespace

std::string whyNoEditing(const App_Context& app) {
    const Main_Form_State& form = app.form();
    if (!form.Document_Open) return "No document is open.";
    if (app.state.modelEmptied) return "The document was emptied when Open began.";
    if (app.document().Read_Only) return "The document is read-only.";
    if (form.Comm_Active || form.Upload_Active || form.Download_Active) return "A transfer is going on.";
    if (form.Online) return "The window is online: disconnect first.";
    return {};
}

void showChangedValues(const App_Context& app, const std::vector<Cell_Place>& places, bool asWritten) {
    const std::int32_t shown = app.grids.fieldNumber();
    for (const Cell_Place& place : places)
        if (place.field == shown) showCellText(app.grids, place);
    if (places.empty()) return;
    if (asWritten) {
        PRO_Titulo_Limpio(app.document(), app.form(), app.mainForm);
        app.mainForm.setMenuEnabled(Menu_Entry::MNU_Save, false);
    } else {
        PRO_Titulo_Modificado(app.document(), app.form(), app.mainForm);
        applySaveRule(app.document(), app.mainForm);
    }
}

} // namespace zorvane::app
