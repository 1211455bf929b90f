// SPDX-License-Identifier: MIT
#include "values/colours.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(Colours, EachWordHasItsPackedColour) {
    EXPECT_EQ(colourOf("BLACK"), 0x404040) << "a dark grey on purpose";
    EXPECT_EQ(colourOf("WHITE"), 0xFFFFFF);
    EXPECT_EQ(colourOf("YELLOW"), 0xC0FFFF);
    EXPECT_EQ(colourOf("BLUE"), 0xC00000);
    EXPECT_EQ(colourOf("GREEN"), 0x80FF80);
    EXPECT_EQ(colourOf("RED"), 0x0000FF);
    EXPECT_EQ(colourOf("ORANGE"), 0x80C0FF);
    EXPECT_EQ(colourOf("PURPLE"), 0xFF80FF);
    EXPECT_EQ(colourOf("0"), 0xFFFFFF);
}

TEST(Colours, BlanksAndLetterCaseDontMatter) {
    EXPECT_EQ(colourOf(" red "), 0xFF);
    EXPECT_EQ(colourOf("  0 "), 0xFFFFFF);
}

TEST(Colours, AnUnknownWordIs0) {
    EXPECT_EQ(colourOf("TEAL"), 0);
    EXPECT_EQ(colourOf(""), 0);
    EXPECT_EQ(colourOf("00"), 0);
}

TEST(Colours, TheProcedureGivesTheSame) {
    std::int32_t color = 1;
    PRO_Color_Palabra("orange", color);
    EXPECT_EQ(color, 0x80C0FF);
    PRO_Color_Palabra("TEAL", color);
    EXPECT_EQ(color, 0);
}

} // namespace
} // namespace zorvane
