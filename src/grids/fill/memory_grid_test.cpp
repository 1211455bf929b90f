// SPDX-License-Identifier: MIT
#include "grids/fill/memory_grid.h"
#include "grids/testing/flex_grid_suite.h"

namespace zorvane {
namespace {

struct Memory_Grid_Factory {
    VSFlexGrid& grid() { return grid_; }
    Memory_Grid grid_;
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, Flex_Grid_Test, Memory_Grid_Factory);

namespace {

TEST(Memory_Grid_Test, HoldsTheLargestTableOfATemplate) {
    constexpr std::int32_t rows = 32768;
    constexpr std::int32_t cols = 50;
    Memory_Grid grid;
    grid.setRows(rows);
    grid.setCols(cols);
    for (std::int32_t r = 0; r < rows; ++r) {
        grid.setRow(r);
        for (std::int32_t c = 0; c < cols; ++c) {
            grid.setCol(c);
            grid.setText("");
            grid.setCellBackColor(c % 2 == 0 ? 0xC0FFFF : 0xFFFFFF);
            grid.setCellForeColor(0x404040);
        }
    }
    grid.setTextMatrix(rows - 1, cols - 1, "last");
    EXPECT_EQ(grid.Text(), "last");
    EXPECT_EQ(grid.CellBackColor(), 0xFFFFFF);
    grid.setCol(0);
    EXPECT_EQ(grid.CellBackColor(), 0xC0FFFF);
    EXPECT_EQ(grid.CellForeColor(), 0x404040);
}

TEST(Memory_Grid_Test, LetsItsUserChooseAnEntryAndScroll) {
    Memory_Grid grid;
    EXPECT_EQ(grid.TopRow(), 1);
    grid.chooseEntry("2");
    grid.scrollTo(5);
    EXPECT_EQ(grid.ComboData(), "2");
    EXPECT_EQ(grid.TopRow(), 5);
}

TEST(Memory_Grid_Test, CountsRepaintsAndFocus) {
    Memory_Grid grid;
    grid.Refresh();
    grid.SetFocus();
    grid.setSelectionHighlight(1);
    EXPECT_EQ(grid.refreshes(), 1);
    EXPECT_EQ(grid.focusCalls(), 1);
    EXPECT_EQ(grid.selectionHighlight(), 1);
}

} // namespace
} // namespace zorvane
