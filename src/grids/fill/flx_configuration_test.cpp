// SPDX-License-Identifier: MIT
#include "grids/fill/flx_configuration.h"
#include "grids/rules/edit_rules.h"
#include "grids/testing/grid_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

constexpr Row_Hit_Grid fiveFields{285, 1, 6, 3};

TEST(Row_Hit_Test, TheHeadingSelectsNothing) {
    EXPECT_FALSE(rowHit(0, fiveFields).selects);
    EXPECT_FALSE(rowHit(284, fiveFields).selects);
    EXPECT_FALSE(rowHit(-300, fiveFields).selects);
}

TEST(Row_Hit_Test, FindsTheRowUnderTheMouse) {
    EXPECT_EQ(rowHit(285, fiveFields).row(), 1);
    EXPECT_EQ(rowHit(569, fiveFields).row(), 1);
    EXPECT_EQ(rowHit(570, fiveFields).row(), 2);
    EXPECT_EQ(rowHit(570, fiveFields).mouseRow, 3);
    EXPECT_EQ(rowHit(1140, fiveFields).row(), 4) << "the last but one";
}

TEST(Row_Hit_Test, BelowTheLastRowMeansTheLastRow) {
    EXPECT_EQ(rowHit(1709, fiveFields).row(), 5);
    EXPECT_EQ(rowHit(1710, fiveFields).row(), 5);
    EXPECT_EQ(rowHit(32767, fiveFields).row(), 5);
}

TEST(Row_Hit_Test, CountsFromTheFirstRowOnScreen) {
    EXPECT_EQ(rowHit(285, (Row_Hit_Grid{285, 3, 6, 3})).row(), 3);
}

TEST(Row_Hit_Test, TheHeadingOfAScrolledGridSelectsNothing) {
    EXPECT_FALSE(rowHit(0, (Row_Hit_Grid{285, 3, 6, 3})).selects);
    EXPECT_FALSE(rowHit(284, (Row_Hit_Grid{285, 3, 6, 3})).selects);
    EXPECT_FALSE(rowHit(-300, (Row_Hit_Grid{285, 5, 6, 3})).selects);
}

TEST(Row_Hit_Test, KeepsARowAboveTheGridInAGridOfOneColumn) {
    EXPECT_EQ(rowHit(-900, fiveFields).mouseRow, 1);
    EXPECT_EQ(rowHit(-900, (Row_Hit_Grid{285, 1, 6, 1})).mouseRow, -2);
    EXPECT_FALSE(rowHit(-900, (Row_Hit_Grid{285, 1, 6, 1})).selects);
}

TEST(Row_Hit_Test, ARowThatNoNumberHoldsIsAnOverflow) {
    try {
        static_cast<void>(rowHit(100, (Row_Hit_Grid{0, 1, 6, 3})));
        FAIL() << "rows without height";
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 6);
    }
}

/// Four fields of one cell each, which holds "field n".
class Flx_Configuration_Test : public testing::Test, protected doubles::Grid_Bench {
  protected:
    Flx_Configuration_Test() {
        for (int field = 1; field <= 4; ++field)
            addTable(1, 1).Cells(1, 1).Value = "field " + std::to_string(field);
        selectField(1);
        for (std::int32_t row = 0; row < ownUpper.Rows(); ++row)
            ownUpper.setRowHeight(row, 285);
        navigation.Skip_Mouse_Select = false;
    }
    std::string shown() const { return ownLower.TextMatrix(1, 0); }
    void clickAt(std::int16_t y, std::int16_t button = 1) {
        navigation.Mouse_Y = y;
        FLX_Configuration_MouseUp(grids, button, 0, 0.0F, 0.0F);
    }
};

TEST_F(Flx_Configuration_Test, ARowChosenByKeysBecomesTheSelectedField) {
    ownUpper.setRow(3);
    FLX_Configuration_RowColChange(grids);
    EXPECT_EQ(document.Selected_Field, 3);
    EXPECT_EQ(shown(), "field 3");
}

TEST_F(Flx_Configuration_Test, ASelectionShowsItsFieldOnly) {
    ownUpper.setRow(2);
    FLX_Configuration_SelChange(grids);
    EXPECT_EQ(document.Selected_Field, 0);
    EXPECT_EQ(shown(), "field 2");
}

TEST_F(Flx_Configuration_Test, NothingIsSelectedWhileTheFormLaysItselfOut) {
    navigation.Form_Resizing = true;
    ownUpper.setRow(3);
    FLX_Configuration_RowColChange(grids);
    FLX_Configuration_SelChange(grids);
    EXPECT_EQ(document.Selected_Field, 0);
    EXPECT_EQ(shown(), "");
}

TEST_F(Flx_Configuration_Test, AClickSelectsItsRowAcrossAllColumns) {
    ownUpper.setCols(3);
    clickAt(600);
    EXPECT_EQ(shown(), "field 2");
    EXPECT_EQ(ownUpper.Row(), 2);
    EXPECT_EQ(ownUpper.RowSel(), 2);
    EXPECT_EQ(ownUpper.Col(), 1);
    EXPECT_EQ(ownUpper.ColSel(), 2);
    EXPECT_EQ(ownUpper.selectionHighlight(), 1);
    EXPECT_EQ(ownUpper.refreshes(), 1);
    EXPECT_EQ(navigation.Mouse_Row, 3);
    EXPECT_FALSE(navigation.Mouse_Track_Off);
    EXPECT_EQ(document.Selected_Field, 0) << "the mouse doesn't record it";
}

TEST_F(Flx_Configuration_Test, AllRowsCountAsHighAsTheHeading) {
    ownUpper.setRowHeight(0, 570);
    clickAt(600);
    EXPECT_EQ(ownUpper.Row(), 1);
    clickAt(1200);
    EXPECT_EQ(ownUpper.Row(), 2);
}

TEST_F(Flx_Configuration_Test, AClickInTheHeadingSelectsNothing) {
    clickAt(600);
    clickAt(100);
    EXPECT_EQ(shown(), "field 2");
    EXPECT_EQ(ownUpper.Row(), 2);
}

TEST_F(Flx_Configuration_Test, AClickBelowTheLastRowSelectsTheLastRow) {
    clickAt(9000);
    EXPECT_EQ(ownUpper.Row(), 4);
    EXPECT_EQ(shown(), "field 4");
}

TEST_F(Flx_Configuration_Test, AClickOnTheCurrentRowFillsItAnew) {
    clickAt(300);
    document.Fields(1).Cells(1, 1).Value = "changed";
    clickAt(300);
    EXPECT_EQ(shown(), "changed");
}

TEST_F(Flx_Configuration_Test, OtherButtonsSelectNothing) {
    clickAt(600, 2);
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(navigation.Mouse_Track_Off);
}

TEST_F(Flx_Configuration_Test, ADoubleClickRecordsItsRowAndTheNextClickSelectsNothing) {
    ownUpper.setRow(3);
    FLX_Configuration_DblClick(grids);
    EXPECT_EQ(document.Selected_Field, 3);
    clickAt(600); // the release that ends the double click
    EXPECT_EQ(ownUpper.Row(), 3);
    clickAt(600); // the release of the next click comes before its click event
    EXPECT_EQ(ownUpper.Row(), 3);
    FLX_Configuration_Click(grids);
    clickAt(600);
    EXPECT_EQ(ownUpper.Row(), 2);
}

TEST_F(Flx_Configuration_Test, RecordsTheMouseOnceTracking) {
    FLX_Configuration_MouseMove(grids, 0, 0, 50.0F, 60.0F);
    EXPECT_EQ(navigation.Mouse_Y, 0);
    navigation.Mouse_Track_Off = false;
    FLX_Configuration_MouseMove(grids, 0, 0, 50.5F, 60.0F);
    EXPECT_EQ(navigation.Mouse_X, 50);
    EXPECT_EQ(navigation.Mouse_Y, 60);
}

TEST_F(Flx_Configuration_Test, StartsWithTheMouseOff) {
    const Navigation_State fresh;
    EXPECT_TRUE(fresh.Skip_Mouse_Select);
    EXPECT_TRUE(fresh.Mouse_Track_Off);
    EXPECT_FALSE(fresh.Form_Resizing);
}

} // namespace
} // namespace zorvane
