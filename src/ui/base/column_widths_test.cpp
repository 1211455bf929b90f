// SPDX-License-Identifier: MIT
#include "ui/base/column_widths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using ::testing::ElementsAre;

TEST(Column_Widths, AsWantedWhereThatFits) {
    EXPECT_THAT(fittedWidths({100, 50, 30}, {40, 50, 10}, 180), ElementsAre(100, 50, 30));
}

TEST(Column_Widths, EachGivesUpTheSameShareOfWhatItCanSpare) {
    EXPECT_THAT(fittedWidths({100, 50, 30}, {40, 50, 10}, 140), ElementsAre(70, 50, 20));
}

TEST(Column_Widths, WhatDoesntDivideComesOutEven) {
    EXPECT_THAT(fittedWidths({10, 10, 10}, {0, 0, 0}, 20), ElementsAre(7, 7, 6));
}

TEST(Column_Widths, NoColumnGetsLessThanItsLeast) {
    EXPECT_THAT(fittedWidths({100, 50, 30}, {40, 60, 10}, 50), ElementsAre(40, 60, 10));
}

} // namespace
} // namespace zorvane::ui
