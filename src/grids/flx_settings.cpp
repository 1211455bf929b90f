// SPDX-License-Identifier: MIT
#include "grids/flx_settings.h"

#include "cells/cell_names.h"
#include "grids/commit/commit_list.h"
#include "grids/commit/commit_value.h"
#include "grids/commit/unholdable_text.h"
#include "grids/rules/edit_rules.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

constexpr std::int16_t homeKey = 36;
constexpr std::int16_t shiftCtrlAlt = 7;

/// A commit to a cell of the lower grid, to be told to whoever watches the values once it has ended.
class Watched_Commit {
  public:
    Watched_Commit(const Grid_Context& grids, std::int32_t row, std::int32_t col)
        : grids_(grids), document_(grids.comm.document),
          online_(grids.comm.form.Online), place_{grids.fieldNumber(), row, col + 1},
          before_(grids.cell(row, col).Value) {}

    /// A value that the controller has, too, can't be taken back in the document alone.
    void tell() const {
        if (grids_.watcher == nullptr || !document_.holds()) return;
        const Cell_Rec& cell = grids_.comm.document.Fields(place_.field).Cells(place_.row, place_.column);
        if ((online_ || grids_.comm.form.Online) && !cell.Address.empty())
            return grids_.watcher->changedForGood();
        const std::string name = cellName(grids_.comm.document, place_.field, place_.row, place_.column);
        grids_.watcher->changed("change of " + name, {{place_, before_, cell.Value}});
    }

    [[nodiscard]] const Cell_Place& place() const noexcept { return place_; }
    [[nodiscard]] bool documentHolds() const { return document_.holds(); }

  private:
    const Grid_Context& grids_;
    Document_Mark document_;
    bool online_;
    Cell_Place place_;
    std::string before_;
};

void commit(const Grid_Context& grids, std::int32_t Row, std::int32_t Col, const Watched_Commit& watched) {
    VSFlexGrid& grid = grids.FLX_Settings;
    if (grids.cell(Row, Col).Has_Messages) {
        const std::string entry = grid.ComboData();
        PRO_Escribe_Lista(grids, Row, Col, entry.empty() ? "0" : entry);
        return;
    }
    bool rejected = false;
    PRO_Escribe_Valor(grids, Row, Col, grid.TextMatrix(Row, Col), rejected);
    if (watched.documentHolds()) tellCommittedText(grids, watched.place());
}

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
    const Watched_Commit watched(grids, Row, Col);
    try {
        commit(grids, Row, Col, watched);
    } catch (const Run_Time_Failure&) {
        watched.tell(); // some values are taken before the failure
        throw;
    }
    watched.tell();
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
