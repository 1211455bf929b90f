// SPDX-License-Identifier: MIT
#include "checker/wording.h"

#include <gtest/gtest.h>

namespace zorvane::checker {
namespace {

TEST(Wording, CountsInWords) {
    EXPECT_EQ(counted(1, "register"), "1 register");
    EXPECT_EQ(counted(2147483648, "register"), "2147483648 registers");
}

TEST(Wording, ListsAtMostFiveAndTellsOfTheRest) {
    EXPECT_EQ(listed("row", {2}), "row 2");
    EXPECT_EQ(listed("row", {2, 3}), "rows 2, 3");
    EXPECT_EQ(listed("row", {1, 2, 3, 4, 5, 6}), "rows 1, 2, 3, 4, 5, 6");
    EXPECT_EQ(listed("row", {1, 2, 3, 4, 5, 6, 7}), "rows 1, 2, 3, 4, 5 and 2 more");
}

TEST(Wording, OffersAChoice) {
    EXPECT_EQ(choice({"YES"}), "YES");
    EXPECT_EQ(choice({"YES", "NO"}), "YES or NO");
    EXPECT_EQ(choice({"LEFT", "RIGHT", "CENTER"}), "LEFT, RIGHT or CENTER");
}

TEST(Wording, SpellsANameWithItsNumber) {
    EXPECT_EQ(spelt("COL_#_WIDTH", 7), "COL_7_WIDTH");
    EXPECT_EQ(spelt("COL_#_WIDTH", 0), "COL_n_WIDTH");
    EXPECT_EQ(spelt("PORT", 7), "PORT");
}

TEST(Wording, NearestNeedsSomeLikeness) {
    EXPECT_EQ(nearest("ALIGMENT", {"WIDTH", "ALIGNMENT"}), "ALIGNMENT");
    EXPECT_EQ(nearest("WIDHT", {"WIDTH", "ALIGNMENT"}), "WIDTH");
    EXPECT_EQ(nearest("COLOUR", {"WIDTH", "ALIGNMENT"}), "");
    EXPECT_EQ(nearest("", {"UP"}), "");
    EXPECT_EQ(nearest(std::string(100000, 'x'), {"UP"}), "");
}

} // namespace
} // namespace zorvane::checker
