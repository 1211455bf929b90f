// SPDX-License-Identifier: MIT
#include "template/model/cell_table.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zorvane {
namespace {

using doubles::failureNumber;

TEST(CellTable, AnIndexOutsideIsFailure9) {
    Cell_Table cells;
    cells.redim(2, 3);
    cells(2, 3).Value = "last";
    cells(0, 0).Value = "first";
    EXPECT_EQ(cells(2, 3).Value, "last");
    EXPECT_EQ(failureNumber([&] { (void)cells(3, 3); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)cells(2, 4); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)cells(-1, 0); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)cells(0, -1); }), 9);
    const Cell_Table& constant = cells;
    EXPECT_EQ(failureNumber([&] { (void)constant(3, 0); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)cells.lastWrittenColumn(3); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)cells.lastWrittenColumn(-1); }), 9);
}

TEST(CellTable, HasNoCellsBeforeTheFirstRedim) {
    Cell_Table cells;
    EXPECT_FALSE(cells.dimensioned());
    EXPECT_EQ(failureNumber([&] { (void)cells(0, 0); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)cells.rows(); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)cells.columns(); }), 9);
}

TEST(CellTable, RedimWipesEveryCell) {
    Cell_Table cells;
    cells.redim(1, 1);
    cells(1, 1).Value = "old";
    cells.redim(1, 2);
    EXPECT_EQ(cells(1, 1).Value, "");
    EXPECT_EQ(cells.rows(), 1);
    EXPECT_EQ(cells.columns(), 2);
}

TEST(CellTable, NegativeSizesAreFailure9AndChangeNothing) {
    Cell_Table cells;
    cells.redim(1, 1);
    cells(1, 1).Value = "kept";
    EXPECT_EQ(failureNumber([&] { cells.redim(-1, 5); }), 9);
    EXPECT_EQ(failureNumber([&] { cells.redim(5, -1); }), 9);
    EXPECT_EQ(cells(1, 1).Value, "kept");
}

TEST(CellTable, ReferencesStayGoodWhileOtherCellsAreWritten) {
    Cell_Table cells;
    cells.redim(100, 100);
    Cell_Rec& first = cells(1, 1);
    first.Value = "here";
    for (std::int32_t row = 0; row <= 100; ++row)
        for (std::int32_t column = 0; column <= 100; ++column)
            cells(row, column).Address = "x";
    EXPECT_EQ(&cells(1, 1), &first);
    EXPECT_EQ(first.Value, "here");
}

TEST(CellTable, ACellThatWasNeverWrittenReadsEmpty) {
    Cell_Table cells;
    cells.redim(2, 2);
    cells(1, 1).Value = "x";
    const Cell_Table& constant = cells;
    EXPECT_EQ(constant(1, 2).Value, "");
    EXPECT_EQ(constant(2, 2).Value, "");
    EXPECT_EQ(cells.lastWrittenColumn(1), 1);
    EXPECT_EQ(cells.lastWrittenColumn(2), -1);
}

TEST(CellTable, ManyCellsKeepTheirPlaceAndContents) {
    Cell_Table cells;
    cells.redim(700, 60);
    std::vector<Cell_Rec*> places;
    for (std::int32_t row = 0; row <= 700; ++row)
        for (std::int32_t column = 0; column <= 60; ++column) {
            places.push_back(&cells(row, column));
            places.back()->Value =
                std::to_string(row * 100 + column) + " as a text too long to lie in the cell";
        }
    const Cell_Table moved = std::move(cells);
    std::size_t k = 0;
    for (std::int32_t row = 0; row <= 700; ++row)
        for (std::int32_t column = 0; column <= 60; ++column) {
            ASSERT_EQ(&moved(row, column), places[k++]);
            ASSERT_EQ(moved(row, column).Value,
                      std::to_string(row * 100 + column) + " as a text too long to lie in the cell");
        }
}

TEST(CellTable, TheLargestTableIsCheapUntilItIsWritten) {
    Cell_Table cells;
    cells.redim(32767, 32767);
    cells(32767, 1).Value = "corner";
    EXPECT_EQ(cells(32767, 1).Value, "corner");
    const Cell_Table& constant = cells;
    EXPECT_EQ(constant(32767, 32767).Value, "");
}

} // namespace
} // namespace zorvane
