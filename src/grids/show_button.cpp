#include "grids/show_button.h"

#include "grids/fill_settings.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

bool hasCell(const Grid_Context& grids, std::int32_t field, std::int32_t row, std::int32_t col) {
    if (field < 1 || field >= grids.FLX_Configuration.Rows()) return false;
    const Cell_Table& cells = grids.comm.document.Fields(field).Cells;
    return cells.dimensioned() && row >= 1 && row <= cells.rows() && col >= 0 && col < cells.columns();
}

void selectField(const Grid_Context& grids, std::int32_t field) {
    VSFlexGrid& upper = grids.FLX_Configuration;
    upper.setRow(field);
    if (upper.Cols() > 1) upper.setCol(1);
    upper.setColSel(upper.Cols() - 1);
    grids.comm.document.Selected_Field = field;
    PRO_Llena_Settings(grids, toInteger(field), false);
}

void show(const Grid_Context& grids, std::int32_t field, std::int32_t row, std::int32_t col) {
    if (!hasCell(grids, field, row, col)) return;
    if (grids.fieldNumber() != field) selectField(grids, field);
    if (row >= grids.FLX_Settings.Rows() || col >= grids.FLX_Settings.Cols()) return;
    grids.FLX_Settings.setRow(row);
    grids.FLX_Settings.setCol(col);
    grids.FLX_Settings.SetFocus();
}

} // namespace

Bar_Button showButton(const Grid_Context& grids, std::int32_t field, std::int32_t row, std::int32_t col) {
    return {"Show", [grids, document = Document_Mark(grids.comm.document), field, row, col] {
                const Grid_Context own = grids; // the line may go meanwhile
                if (document.holds()) show(own, field, row, col);
            }};
}

} // namespace zorvane
