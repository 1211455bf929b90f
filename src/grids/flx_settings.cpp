// SPDX-License-Identifier: MIT
#include "grids/flx_settings.h"

#include "grids/commit/commit_list.h"
#include "grids/commit/commit_value.h"
#include "grids/commit/unholdable_text.h"
#include "grids/rules/edit_rules.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

constexpr std::int16_t homeKey = 36;
constexpr std::int16_t shiftCtrlAlt = 7;

} // namespace

void FLX_Settings_BeforeEdit(const Grid_Context& grids, std::int32_t Row, std::int32_t Col, bool& Cancel) {
    if (grids.comm.document.Read_Only) {
        grids.comm.mainForm.setPanel(Panel::Message, "READ ONLY FILE. Can't modify the value.");
        Cancel = true;
        return;
    }
    const Cell_Rec& cell = grids.cell(Row, Col);
    VSFlexGrid& grid = grids.FLX_Settings;
    if (cell.Has_Messages) {
        grid.setComboList(comboListOf(cell));
        return;
    }
    grid.setComboList("");
    if (cell.Is_Ascii_Range) grid.setEditMaxLength(editMaxLengthOf(cell));
}

void FLX_Settings_StartEdit(const Grid_Context& grids, std::int32_t /*Row*/, std::int32_t Col, bool& Cancel) {
    if (!grids.definition(Col).Modifiable) Cancel = true;
}

void FLX_Settings_AfterEdit(const Grid_Context& grids, std::int32_t Row, std::int32_t Col) {
    VSFlexGrid& grid = grids.FLX_Settings;
    if (grids.cell(Row, Col).Has_Messages) {
        const std::string entry = grid.ComboData();
        PRO_Escribe_Lista(grids, Row, Col, entry.empty() ? "0" : entry);
        return;
    }
    bool rejected = false;
    const Document_Mark mark(grids.comm.document);
    const Cell_Place place{grids.fieldNumber(), Row, Col + 1};
    PRO_Escribe_Valor(grids, Row, Col, grid.TextMatrix(Row, Col), rejected);
    if (mark.holds()) tellCommittedText(grids, place);
}

void FLX_Settings_AfterUserResize(const Grid_Context& grids, std::int32_t /*Row*/, std::int32_t Col) {
    ignoringFailure([&] { grids.definition(Col).Width = toInteger(grids.FLX_Settings.ColWidth(Col)); });
}

void FLX_Settings_KeyUp(const Grid_Context& grids, std::int16_t KeyCode, std::int16_t Shift) {
    if (KeyCode == homeKey && Shift == shiftCtrlAlt) grids.windows.showFrmDebug();
}

void FLX_Settings_MouseMove(const Grid_Context& grids, std::int16_t /*Button*/, std::int16_t /*Shift*/,
                            float X, float Y) {
    grids.navigation.Mouse_X = toInteger(static_cast<double>(X));
    grids.navigation.Mouse_Y = toInteger(static_cast<double>(Y));
    grids.windows.updateColumnTip();
}

} // namespace zorvane
