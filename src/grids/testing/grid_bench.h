// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/testing/comm_bench.h"
#include "grids/fill/grid_context.h"
#include "grids/fill/memory_grid.h"
#include "grids/flx_settings.h"
#include "values/numbers.h"

#include <cstdint>
#include <string>
#include <utility>

namespace zorvane::doubles {

/// Windows that count what they were asked.
struct Recording_Windows final : Grid_Windows {
    int debugShown = 0;
    int tipUpdates = 0;
    int cellsShown = 0;
    Mouse_Place place;

    void showFrmDebug() override { ++debugShown; }
    void updateColumnTip() override { ++tipUpdates; }
    void showCurrentCell() override { ++cellsShown; }
    [[nodiscard]] Mouse_Place mousePlace() const override { return place; }
};

/// The bench of the link with two grids on it: in memory, or those of a test's own making.
struct Grid_Bench : Comm_Bench {
    Grid_Bench() : Grid_Bench(nullptr) {}
    explicit Grid_Bench(VSFlexGrid& lower) : Grid_Bench(&lower) {}
    /// A field of modifiable columns of that type, all addresses empty, whose cells hold "0". It is selected.
    Field_Rec& addTable(std::int16_t rows, std::int16_t columns, const std::string& type = "NUMERIC") {
        Field_Rec& field = addField(rows, columns);
        for (std::int32_t c = 1; c <= columns; ++c) {
            field.Cells(0, c).Modifiable = true;
            field.Cells(0, c).Column_Type = type;
            for (std::int32_t r = 1; r <= rows; ++r)
                field.Cells(r, c).Value = "0";
        }
        selectField(document.Field_Count);
        return field;
    }

    /// Makes a field the current row of the upper grid and gives the lower one its size.
    void selectField(std::int32_t field) {
        grids.FLX_Configuration.setCols(2);
        grids.FLX_Configuration.setRows(document.Field_Count + 1);
        grids.FLX_Configuration.setFixedRows(1);
        grids.FLX_Configuration.setRow(field);
        grids.FLX_Settings.setCols(document.Fields(field).Columns);
        grids.FLX_Settings.setRows(document.Fields(field).Rows + 1);
        grids.FLX_Settings.setFixedRows(1);
    }

    /// What the user's text in a free-text editor leads to.
    void type(std::int32_t row, std::int32_t col, const std::string& text) {
        grids.FLX_Settings.setRow(row);
        grids.FLX_Settings.setCol(col);
        grids.FLX_Settings.setText(text);
        FLX_Settings_AfterEdit(grids, row, col);
    }

    /// The same for an entry of a list, by its number from 0. Only with the grids in memory.
    void choose(std::int32_t row, std::int32_t col, const std::string& entry) {
        ownLower.setRow(row);
        ownLower.setCol(col);
        const Cell_Rec& cell = grids.cell(row, col);
        ignoringFailure([&] { ownLower.setText(cell.Messages(strictLong(entry) + 1).Text); });
        ownLower.chooseEntry(entry);
        FLX_Settings_AfterEdit(grids, row, col);
    }

    Memory_Grid ownUpper;
    Memory_Grid ownLower;
    Navigation_State navigation;
    Hidden_Editors editors;
    Recording_Windows windows;
    Grid_Context grids;

  private:
    explicit Grid_Bench(VSFlexGrid* lower)
        : grids{comm, ownUpper, lower ? *lower : ownLower, navigation, editors, windows} {
        document.File_Stem = "SITE7";
        document.File_Extension = "ABC";
        form.Unit_Id = 3;
    }
};

} // namespace zorvane::doubles
