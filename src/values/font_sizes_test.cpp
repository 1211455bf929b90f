// SPDX-License-Identifier: MIT
#include "values/font_sizes.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(FontSizes, AListedSizeStandsForTheOneThatIsApplied) {
    EXPECT_EQ(Font_Size_Map(8), 7.5);
    EXPECT_EQ(Font_Size_Map(8.5), 8.25);
    EXPECT_EQ(Font_Size_Map(9), 9);
    EXPECT_EQ(Font_Size_Map(9.5), 9.75);
    EXPECT_EQ(Font_Size_Map(10), 10.5);
    EXPECT_EQ(Font_Size_Map(10.5), 11.25);
    EXPECT_EQ(Font_Size_Map(11), 12);
}

TEST(FontSizes, AnyOtherSizeStandsForItself) {
    EXPECT_EQ(Font_Size_Map(8.25), 8.25);
    EXPECT_EQ(Font_Size_Map(0), 0);
}

TEST(FontSizes, AreListedWithABlankInFront) {
    EXPECT_EQ(listedFontSize(0), " 8");
    EXPECT_EQ(listedFontSize(1), " 8.5");
    EXPECT_EQ(listedFontSize(6), " 11");
}

} // namespace
} // namespace zorvane
