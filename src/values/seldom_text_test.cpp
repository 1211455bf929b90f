// SPDX-License-Identifier: MIT
#include "values/seldom_text.h"

#include <gtest/gtest.h>

#include <utility>

namespace zorvane {
namespace {

TEST(SeldomText, IsEmptyAtFirstAndTakesOnePointer) {
    const Seldom_Text text;
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text, "");
    EXPECT_EQ(sizeof text, sizeof(void*));
}

TEST(SeldomText, ReadsLikeAString) {
    const Seldom_Text text = "TIMEMM";
    const std::string& asString = text;
    const std::string_view asView = text;
    EXPECT_EQ(asString, "TIMEMM");
    EXPECT_EQ(asView, "TIMEMM");
    EXPECT_EQ(text, std::string("TIMEMM"));
    EXPECT_NE(text, Seldom_Text("TIME"));
}

TEST(SeldomText, ACopyIsATextOfItsOwn) {
    Seldom_Text first = "LEFT";
    Seldom_Text second = first;
    first = "RIGHT";
    EXPECT_EQ(second, "LEFT");
    second = first;
    EXPECT_EQ(second, "RIGHT");
    const Seldom_Text& itself = second;
    second = itself;
    EXPECT_EQ(second, "RIGHT");
}

TEST(SeldomText, TheEmptyTextTakesTheOldOneAway) {
    Seldom_Text text = "ALWAYS";
    text = "";
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text, Seldom_Text());
}

TEST(SeldomText, KeepsABlankAndAZeroByte) {
    EXPECT_FALSE(Seldom_Text(" ").empty());
    EXPECT_EQ(Seldom_Text(std::string("a\0b", 3)).text().size(), 3U);
}

TEST(SeldomText, MovesWithItsText) {
    Seldom_Text first = "TIME";
    const Seldom_Text second = std::move(first);
    EXPECT_EQ(second, "TIME");
}

} // namespace
} // namespace zorvane
