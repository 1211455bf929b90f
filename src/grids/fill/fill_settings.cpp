// SPDX-License-Identifier: MIT
#include "grids/fill/fill_settings.h"

#include "grids/rules/alignment.h"
#include "grids/rules/cell_fill.h"
#include "values/code_page.h"
#include "values/colours.h"

#include <functional>

namespace zorvane {

namespace {

using Cell_Decision = std::function<Cell_Fill(const Cell_Rec&)>;

void layOut(VSFlexGrid& grid, const Field_Rec& field) {
    grid.setCols(field.Columns);
    grid.setRows(field.Rows + 1);
    grid.setFixedRows(1);
    for (std::int32_t c = 0; c < grid.Cols(); ++c)
        grid.setFixedAlignment(c, Align_Center_Center);
    grid.setRow(0);
    for (std::int32_t c = 0; c < grid.Cols(); ++c) {
        const Cell_Rec& definition = field.Cells(0, c + 1);
        grid.setCol(c);
        grid.setText(definition.Value);
        grid.setColWidth(c, definition.Width);
        grid.setColAlignment(c, alignmentOf(upperTrimmed(definition.Alignment)));
    }
}

void colourCurrentCell(VSFlexGrid& grid, const Colour_Words& words, bool modifiable) {
    grid.setCellBackColor(colourOf(modifiable ? words.Color_Back_Modifiable : words.Color_Back_Normal));
    grid.setCellForeColor(colourOf(modifiable ? words.Color_Txt_Modifiable : words.Color_Txt_Normal));
}

/// A field being shown, and where.
struct Field_Filling {
    VSFlexGrid& grid;
    Declara_Zorvane& document;
    Field_Rec& field;
    std::int32_t number; ///< the field's
};

/// Tables are read through the constant model, so that cells never written take no memory by being shown.
void fillCell(const Field_Filling& filling, std::int32_t r, std::int32_t c, const Cell_Decision& decide) {
    VSFlexGrid& grid = filling.grid;
    const Cell_Table& cells = filling.field.Cells;
    const Cell_Fill fill = decide(cells(r, c + 1));
    if (fill.stored)
        filling.document.Passing.put(filling.field.Cells(r, c + 1), {filling.number, r, c + 1}, *fill.stored);
    // A cell that shows nothing also loses what another field left there.
    static const std::string nothing;
    grid.setTextMatrix(r, c, fill.shown ? *fill.shown : nothing);
}

void fillCells(const Field_Filling& filling, const Cell_Decision& decide) {
    const Cell_Table& cells = filling.field.Cells;
    for (std::int32_t r = 1; r <= filling.field.Rows; ++r)
        for (std::int32_t c = 0; c < filling.field.Columns; ++c) {
            filling.grid.setRow(r);
            filling.grid.setCol(c);
            colourCurrentCell(filling.grid, filling.document.Colors, cells(0, c + 1).Modifiable);
            fillCell(filling, r, c, decide);
        }
}

Cell_Decision decisionFor(const Comm_Context& comm) {
    if (!comm.form.Online) return offlineFill;
    comm.form.Poll_Request = comm.form.Current_Request;
    return [view = Online_View{comm.image(), comm.form.Poll_Request, [&link = comm.link] {
                                   return link.CommLost();
                               }}](const Cell_Rec& cell) { return onlineFill(cell, view); };
}

} // namespace

void PRO_Llena_Settings(const Grid_Context& grids, std::int16_t Row, bool /*Primera*/) {
    Declara_Zorvane& document = grids.comm.document;
    VSFlexGrid& grid = grids.FLX_Settings;
    grid.setVisible(false);
    Field_Rec& field = document.Fields(Row);
    layOut(grid, field);
    fillCells({grid, document, field, Row}, decisionFor(grids.comm));
    for (std::int32_t r = 0; r < grid.Rows(); ++r)
        grid.setRowHeight(r, grids.editors.EDT_Modifica_Settings.Height);
    grid.setVisible(true);
}

void PRO_Mouse_En_Encabezado(const Grid_Context& grids, bool& Result) {
    Result = mouseOverHeading(grids.windows.mousePlace(), grids.FLX_Settings.RowHeight(0));
}

bool mouseOverHeading(const Mouse_Place& place, std::int32_t headingHeight) noexcept {
    const double x = (place.cursorX - place.formX - place.frameLeft) * place.twipsPerPixelX;
    const double y = (place.cursorY - place.formY - place.frameTop) * place.twipsPerPixelY;
    return x >= place.gridLeft && x <= place.gridLeft + place.gridWidth && y >= place.gridTop &&
           y <= place.gridTop + headingHeight;
}

} // namespace zorvane
