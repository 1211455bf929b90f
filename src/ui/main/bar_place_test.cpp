// SPDX-License-Identifier: MIT
#include "ui/main/bar_place.h"

#include <gtest/gtest.h>

#include <ostream>

static void PrintTo(const QRect& place, std::ostream* out) {
    *out << place.x() << "," << place.y() << " " << place.width() << "x" << place.height();
}

namespace zorvane::ui {
namespace {

/// A grid of 240 pixels whose cells stand between its heading and its scroll bar.
constexpr Bar_Room usual{QRect(10, 160, 400, 205), 240, 387, 400, 30};

TEST(Bar_Place, is_the_lower_edge_of_the_cells) {
    EXPECT_EQ(barPlace(usual, 30), QRect(10, 365 - 30, 400, 30));
    EXPECT_EQ(barPlace(usual, 60), QRect(10, 365 - 60, 400, 60));
}

TEST(Bar_Place, is_no_higher_than_a_third_of_the_grid) {
    EXPECT_EQ(barPlace(usual, 81), QRect(10, 365 - 80, 400, 80));
    EXPECT_EQ(barPlace(usual, 5000), QRect(10, 365 - 80, 400, 80));
}

TEST(Bar_Place, is_one_line_over_the_border_of_a_frame_whose_grid_is_too_low) {
    Bar_Room low = usual;
    low.gridHeight = 89;
    low.cells = QRect(10, 160, 400, 54);
    low.boxBottom = 236;
    EXPECT_TRUE(holdsOneLineOnly(low));
    EXPECT_EQ(barPlace(low, 60), QRect(10, 236 - 30, 400, 30));
    low.gridHeight = 90;
    EXPECT_FALSE(holdsOneLineOnly(low));
    EXPECT_EQ(barPlace(low, 60), QRect(10, 214 - 30, 400, 30));
}

TEST(Bar_Place, stays_inside_a_form_that_cuts_the_frame_off) {
    Bar_Room cut = usual;
    cut.clientHeight = 300;
    cut.gridHeight = 155;
    EXPECT_EQ(barPlace(cut, 40), QRect(10, 260, 400, 40));
    cut.clientHeight = 20;
    cut.gridHeight = -125;
    EXPECT_EQ(barPlace(cut, 40), QRect(10, 0, 400, 30));
}

TEST(Bar_Place, covers_cells_from_its_upper_edge_down) {
    EXPECT_EQ(coveredCells(usual, barPlace(usual, 60)), 60);
    EXPECT_EQ(coveredCells(usual, QRect(10, 355, 400, 30)), 10);
    EXPECT_EQ(coveredCells(usual, QRect(10, 370, 400, 30)), 0);
    EXPECT_EQ(coveredCells(usual, QRect(10, 0, 400, 30)), 205);
}

} // namespace
} // namespace zorvane::ui
