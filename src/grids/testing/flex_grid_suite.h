// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/fill_settings.h"
#include "grids/rules/vsflexgrid.h"
#include "grids/testing/grid_bench.h"
#include "values/colours.h"
#include "values/run_time_failure.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane {

/// What every grid must do, whichever control is behind it. `Factory` is default constructible and its
/// `grid()` is one grid, the same at each call, as it stands when it was just made. To run the tests on it:
/// `INSTANTIATE_TYPED_TEST_SUITE_P(Name, Flex_Grid_Test, Factory);`
template <class Factory> class Flex_Grid_Test : public testing::Test {
  protected:
    VSFlexGrid& grid() { return factory_.grid(); }

    /// Three rows by two columns, each cell with its place as text.
    void fill() {
        grid().setRows(3);
        grid().setCols(2);
        for (std::int32_t r = 0; r < 3; ++r)
            for (std::int32_t c = 0; c < 2; ++c)
                grid().setTextMatrix(r, c, place(r, c));
    }
    static std::string place(std::int32_t row, std::int32_t col) {
        return std::to_string(row) + "," + std::to_string(col);
    }
    void colour(std::int32_t row, std::int32_t col, std::int32_t back, std::int32_t fore) {
        grid().setRow(row);
        grid().setCol(col);
        grid().setCellBackColor(back);
        grid().setCellForeColor(fore);
    }
    template <class Statement> static void expectSubscript(Statement statement) {
        try {
            statement();
            FAIL() << "no failure";
        } catch (const Run_Time_Failure& failure) {
            EXPECT_EQ(failure.number(), 9);
        }
    }

  private:
    Factory factory_;
};

TYPED_TEST_SUITE_P(Flex_Grid_Test);

TYPED_TEST_P(Flex_Grid_Test, IsEmptyAtFirst) {
    VSFlexGrid& grid = this->grid();
    EXPECT_EQ(grid.Rows(), 0);
    EXPECT_EQ(grid.Cols(), 0);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(grid.Col(), -1);
    EXPECT_EQ(grid.ComboList(), "");
    EXPECT_EQ(grid.ComboData(), "");
    EXPECT_EQ(grid.EditMaxLength(), 0);
    EXPECT_EQ(grid.RowSel(), -1);
    EXPECT_EQ(grid.ColSel(), -1);
}

TYPED_TEST_P(Flex_Grid_Test, TextAddressesTheCurrentCell) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    grid.setRow(2);
    grid.setCol(1);
    EXPECT_EQ(grid.Text(), "2,1");
    grid.setText("changed");
    EXPECT_EQ(grid.TextMatrix(2, 1), "changed");
    EXPECT_EQ(grid.TextMatrix(1, 1), "1,1");
}

TYPED_TEST_P(Flex_Grid_Test, KeepsTextsOfTheCodePage) {
    this->fill();
    this->grid().setTextMatrix(1, 1, "\xB0\x43 \x80 a\tb");
    EXPECT_EQ(this->grid().TextMatrix(1, 1), "\xB0\x43 \x80 a\tb");
}

TYPED_TEST_P(Flex_Grid_Test, KeepsWhatOverlapsWhenItsSizeChanges) {
    this->fill();
    this->colour(1, 0, 0xC0FFFF, 0x404040);
    VSFlexGrid& grid = this->grid();
    grid.setRows(2);
    grid.setCols(1);
    grid.setRows(4);
    grid.setCols(3);
    EXPECT_EQ(grid.TextMatrix(0, 0), "0,0");
    EXPECT_EQ(grid.TextMatrix(1, 0), "1,0");
    EXPECT_EQ(grid.TextMatrix(1, 1), "");
    EXPECT_EQ(grid.TextMatrix(2, 0), "");
    grid.setRow(1);
    grid.setCol(0);
    EXPECT_EQ(grid.CellBackColor(), 0xC0FFFF);
    EXPECT_EQ(grid.CellForeColor(), 0x404040);
}

TYPED_TEST_P(Flex_Grid_Test, ForgetsTheColoursOfAColumnThatGoes) {
    this->fill();
    this->colour(1, 1, 0xC0FFFF, 0x404040);
    VSFlexGrid& grid = this->grid();
    grid.setCols(1);
    grid.setCols(3);
    grid.setRow(1);
    grid.setCol(1);
    EXPECT_EQ(grid.CellBackColor(), 0);
    EXPECT_EQ(grid.CellForeColor(), 0);
}

TYPED_TEST_P(Flex_Grid_Test, ForgetsAllAtZeroRows) {
    this->fill();
    this->colour(1, 1, 0xFF, 0xFF);
    VSFlexGrid& grid = this->grid();
    grid.setFixedRows(1);
    grid.setRows(0);
    EXPECT_EQ(grid.FixedRows(), 0);
    EXPECT_EQ(grid.Row(), -1);
    grid.setRows(3);
    EXPECT_EQ(grid.TextMatrix(1, 1), "");
    grid.setRow(1);
    grid.setCol(1);
    EXPECT_EQ(grid.CellBackColor(), 0);
}

TYPED_TEST_P(Flex_Grid_Test, MovesTheCurrentCellIntoWhatIsLeft) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    grid.setRow(2);
    grid.setCol(1);
    grid.setRows(2);
    grid.setCols(1);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 0);
    EXPECT_EQ(grid.RowSel(), 1);
    EXPECT_EQ(grid.ColSel(), 0);
}

TYPED_TEST_P(Flex_Grid_Test, SelectsFromTheCurrentCellOn) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    grid.setRow(1);
    grid.setCol(0);
    EXPECT_EQ(grid.RowSel(), 1);
    EXPECT_EQ(grid.ColSel(), 0);
    grid.setColSel(1);
    grid.setRowSel(2);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 0);
    EXPECT_EQ(grid.RowSel(), 2);
    EXPECT_EQ(grid.ColSel(), 1);
}

TYPED_TEST_P(Flex_Grid_Test, DrawsTheSelectionToTheCurrentCell) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    grid.setRow(1);
    grid.setCol(0);
    grid.setColSel(1);
    grid.setRow(2);
    EXPECT_EQ(grid.RowSel(), 2);
    grid.setCol(0);
    EXPECT_EQ(grid.ColSel(), 0);
}

TYPED_TEST_P(Flex_Grid_Test, CanHaveNoCurrentColumn) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    this->colour(1, 1, 0xFF, 0xC00000);
    grid.setCol(-1);
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(grid.CellBackColor(), 0);
    EXPECT_EQ(grid.CellForeColor(), 0);
    grid.setText("lost");
    grid.setCellBackColor(0xFFFFFF);
    grid.setCol(1);
    EXPECT_EQ(grid.Text(), "1,1");
    EXPECT_EQ(grid.CellBackColor(), 0xFF);
    EXPECT_EQ(grid.CellForeColor(), 0xC00000);
}

TYPED_TEST_P(Flex_Grid_Test, CanHaveNoCurrentRowAndNoEndOfTheSelection) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    grid.setRow(1);
    grid.setCol(1);
    grid.setRowSel(-1);
    grid.setColSel(-1);
    EXPECT_EQ(grid.RowSel(), -1);
    EXPECT_EQ(grid.ColSel(), -1);
    EXPECT_EQ(grid.Text(), "1,1");
    grid.setRow(-1);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(grid.Text(), "");
}

TYPED_TEST_P(Flex_Grid_Test, RefusesPlacesThatItDoesntHave) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    this->expectSubscript([&] { grid.setRow(3); });
    this->expectSubscript([&] { grid.setRow(-2); });
    this->expectSubscript([&] { grid.setCol(2); });
    this->expectSubscript([&] { grid.setCol(-2); });
    this->expectSubscript([&] { grid.setRowSel(3); });
    this->expectSubscript([&] { grid.setColSel(2); });
    this->expectSubscript([&] { grid.setRowSel(-2); });
    this->expectSubscript([&] { grid.setColSel(-2); });
    this->expectSubscript([&] { grid.setTextMatrix(3, 0, ""); });
    this->expectSubscript([&] { grid.setTextMatrix(0, 2, ""); });
    this->expectSubscript([&] { static_cast<void>(grid.TextMatrix(-1, 0)); });
    this->expectSubscript([&] { static_cast<void>(grid.TextMatrix(0, -1)); });
    this->expectSubscript([&] { grid.setColWidth(2, 100); });
    this->expectSubscript([&] { static_cast<void>(grid.ColWidth(-1)); });
    this->expectSubscript([&] { grid.setRowHeight(3, 100); });
    this->expectSubscript([&] { grid.setColAlignment(2, 0); });
    this->expectSubscript([&] { grid.setFixedAlignment(2, 0); });
    this->expectSubscript([&] { grid.setRows(-1); });
    this->expectSubscript([&] { grid.setCols(-1); });
    this->expectSubscript([&] { grid.setFixedRows(4); });
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Cols(), 2);
}

TYPED_TEST_P(Flex_Grid_Test, KeepsSizesAndAlignments) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    grid.setColWidth(1, 1110);
    grid.setRowHeight(2, 285);
    grid.setColAlignment(1, Align_Right_Top);
    grid.setFixedAlignment(1, Align_Center_Center);
    grid.setCols(4);
    grid.setRows(5);
    EXPECT_EQ(grid.ColWidth(1), 1110);
    EXPECT_EQ(grid.RowHeight(2), 285);
    EXPECT_EQ(grid.ColAlignment(1), 6);
    EXPECT_EQ(grid.FixedAlignment(1), 4);
    EXPECT_EQ(grid.ColAlignment(0), 0);
}

TYPED_TEST_P(Flex_Grid_Test, KeepsTheEditorsSettingsUntilTheyAreSetAnew) {
    this->fill();
    VSFlexGrid& grid = this->grid();
    grid.setComboList("|#0;Off|#1;On");
    grid.setEditMaxLength(10);
    grid.setRow(2);
    grid.setCol(1);
    EXPECT_EQ(grid.ComboList(), "|#0;Off|#1;On");
    EXPECT_EQ(grid.EditMaxLength(), 10);
    grid.setComboList("");
    EXPECT_EQ(grid.ComboList(), "");
}

TYPED_TEST_P(Flex_Grid_Test, CanBeHiddenAndLeaveTheTabOrder) {
    VSFlexGrid& grid = this->grid();
    grid.setTabStop(false);
    EXPECT_FALSE(grid.TabStop());
    grid.setTabStop(true);
    EXPECT_TRUE(grid.TabStop());
    grid.setVisible(false);
    EXPECT_FALSE(grid.Visible());
    grid.setFontSize(11.25);
    EXPECT_EQ(grid.FontSize(), 11.25);
}

TYPED_TEST_P(Flex_Grid_Test, ShowsTheTableOfAField) {
    doubles::Grid_Bench bench(this->grid());
    Field_Rec& field = bench.addTable(2, 2);
    field.Cells(0, 1).Value = "Point";
    field.Cells(0, 1).Width = 1100;
    field.Cells(0, 2).Value = "Limit";
    field.Cells(0, 2).Modifiable = false;
    field.Cells(0, 2).Alignment = " right ";
    field.Cells(2, 2).Value = "120";
    PRO_Llena_Settings(bench.grids, 1, true);
    VSFlexGrid& grid = this->grid();
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.TextMatrix(0, 0), "Point");
    EXPECT_EQ(grid.TextMatrix(2, 1), "120");
    EXPECT_EQ(grid.ColWidth(0), 1100);
    EXPECT_EQ(grid.ColAlignment(1), 6);
    EXPECT_EQ(grid.RowHeight(2), 285);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.CellBackColor(), colourOf("WHITE"));
    grid.setCol(0);
    EXPECT_EQ(grid.CellBackColor(), colourOf("YELLOW"));
    EXPECT_EQ(grid.CellForeColor(), colourOf("BLACK"));
}

TYPED_TEST_P(Flex_Grid_Test, TakesACommitAndItsRefusal) {
    doubles::Grid_Bench bench(this->grid());
    bench.addTable(2, 2).Cells(2, 2).Max_Value = "20";
    bench.type(2, 1, "5");
    EXPECT_EQ(this->grid().TextMatrix(2, 1), "5");
    bench.type(2, 1, "21");
    EXPECT_EQ(this->grid().TextMatrix(2, 1), "20");
}

TYPED_TEST_P(Flex_Grid_Test, ShowsALiveWriteByItsColours) {
    doubles::Grid_Bench bench(this->grid());
    bench.addTable(1, 1).Cells(1, 1).Address = "1004";
    bench.form.Online = true;
    bench.mainForm.duringPause = [this](std::int32_t) {
        EXPECT_EQ(this->grid().CellForeColor(), colourOf("BLUE"));
        EXPECT_FALSE(this->grid().TabStop());
    };
    bench.type(1, 0, "120");
    EXPECT_EQ(this->grid().Text(), "120");
    EXPECT_EQ(this->grid().CellForeColor(), colourOf("BLACK"));
    EXPECT_EQ(this->grid().CellBackColor(), colourOf("YELLOW"));
    EXPECT_TRUE(this->grid().TabStop());
}

REGISTER_TYPED_TEST_SUITE_P(Flex_Grid_Test, IsEmptyAtFirst, TextAddressesTheCurrentCell,
                            KeepsTextsOfTheCodePage, KeepsWhatOverlapsWhenItsSizeChanges,
                            ForgetsTheColoursOfAColumnThatGoes, ForgetsAllAtZeroRows,
                            MovesTheCurrentCellIntoWhatIsLeft, SelectsFromTheCurrentCellOn,
                            DrawsTheSelectionToTheCurrentCell, CanHaveNoCurrentColumn,
                            CanHaveNoCurrentRowAndNoEndOfTheSelection, RefusesPlacesThatItDoesntHave,
                            KeepsSizesAndAlignments, KeepsTheEditorsSettingsUntilTheyAreSetAnew,
                            CanBeHiddenAndLeaveTheTabOrder, ShowsTheTableOfAField, TakesACommitAndItsRefusal,
                            ShowsALiveWriteByItsColours);

} // namespace zorvane
