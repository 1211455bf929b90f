// SPDX-License-Identifier: MIT
#include "grids/fill/fill_configuration.h"

#include "grids/fill/fill_settings.h"
#include "grids/rules/alignment.h"
#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

void layOutHeadings(VSFlexGrid& grid, const Declara_Zorvane& document) {
    grid.setRow(0);
    for (std::int32_t c = 0; c < grid.Cols(); ++c) {
        const Config_Column_Rec& column = document.Config_Columns(c + 1);
        grid.setCol(c);
        grid.setText(column.Description);
        grid.setColWidth(c, column.Width);
    }
}

void setRowHeights(VSFlexGrid& grid, std::int32_t twips) {
    for (std::int32_t r = 0; r < grid.Rows(); ++r)
        grid.setRowHeight(r, twips);
}

} // namespace

void PRO_Arma_Configuration(const Grid_Context& grids) {
    const Declara_Zorvane& document = grids.comm.document;
    VSFlexGrid& grid = grids.FLX_Configuration;
    grid.setCols(document.Config_Column_Count);
    grid.setRows(document.Field_Count + 1);
    grid.setFixedRows(1);
    layOutHeadings(grid, document);
    for (std::int32_t r = 0; r < grid.Rows(); ++r) {
        grid.setRowHeight(r, grids.editors.EDT_Modifica_Configuration.Height);
        if (document.Numeric_Rows && r > 0) grid.setTextMatrix(r, 0, numberText(r));
    }
    for (std::int32_t r = 1; r < grid.Rows(); ++r)
        grid.setTextMatrix(r, 1, document.Fields(r).Description);
    setRowHeights(grids.FLX_Settings, grids.editors.EDT_Modifica_Settings.Height);
    grids.comm.mainForm.setPanel(Panel::LinkState, "Offline");
}

void PRO_Llena_Configuration(const Grid_Context& grids) {
    const Declara_Zorvane& document = grids.comm.document;
    VSFlexGrid& grid = grids.FLX_Configuration;
    for (std::int32_t r = 1; r < grid.Rows(); ++r)
        for (std::int32_t c = 1; c <= grid.Cols(); ++c) {
            const std::string& text = document.Fields(r).Config_Values(c);
            if (!text.empty()) grid.setTextMatrix(r, c - 1, text);
        }
    for (std::int32_t c = 0; c < grid.Cols(); ++c) {
        // The word isn't trimmed here, unlike in the lower grid.
        grid.setColAlignment(c, alignmentOf(upperCase(document.Config_Columns(c + 1).Alignment)));
        if (grid.FixedRows() >= 1) grid.setFixedAlignment(c, Align_Center_Center);
    }
}

void PRO_Selecciona_Primera(const Grid_Context& grids) {
    VSFlexGrid& grid = grids.FLX_Configuration;
    grid.setRow(1);
    grid.setCol(1);
    grid.setColSel(grid.Cols() - 1);
    grid.setSelectionHighlight(1);
    PRO_Llena_Settings(grids, 1, true);
}

} // namespace zorvane
