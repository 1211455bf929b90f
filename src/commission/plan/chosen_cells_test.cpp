// SPDX-License-Identifier: MIT
#include "commission/plan/chosen_cells.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

TEST(CellPattern, IsAFieldARowAndAColumnFrom1) {
    EXPECT_EQ(parsePattern("3"), (Cell_Pattern{3, 0, 0}));
    EXPECT_EQ(parsePattern("3,2"), (Cell_Pattern{3, 2, 0}));
    EXPECT_EQ(parsePattern("3,2,1"), (Cell_Pattern{3, 2, 1}));
    for (const char* const text :
         {"", "0", "3,", "3,0", "3,2,0", "3,2,1,", "3,2,1,4", ",2", "a", "3;2", " 3", "3 ", "-1", "3.5"})
        EXPECT_EQ(parsePattern(text), std::nullopt) << text;
}

TEST(ChosenCells, WithoutAPatternAreAllAndNoneByName) {
    const Chosen_Cells all;
    EXPECT_TRUE(all.all());
    EXPECT_TRUE(all.holds({1, 2, 3}));
    EXPECT_FALSE(all.names({1, 2, 3}));
}

TEST(ChosenCells, AWholePageIsChosenAndNoneOfItByName) {
    const Chosen_Cells page({{1, 0, 0}});
    EXPECT_FALSE(page.all());
    EXPECT_TRUE(page.holds({1, 2, 3}));
    EXPECT_FALSE(page.holds({2, 2, 3}));
    EXPECT_FALSE(page.names({1, 2, 3}));
}

TEST(ChosenCells, ARowAndACellAreChosenByName) {
    const Chosen_Cells some({{1, 2, 0}, {4, 5, 6}});
    EXPECT_TRUE(some.names({1, 2, 3}));
    EXPECT_FALSE(some.names({1, 3, 3}));
    EXPECT_TRUE(some.names({4, 5, 6}));
    EXPECT_FALSE(some.names({4, 5, 7}));
    EXPECT_FALSE(some.holds({4, 5, 7}));
}

TEST(ChosenCells, AllByNameAreAllOfThem) {
    EXPECT_TRUE(Chosen_Cells::allByName().holds({1, 2, 3}));
    EXPECT_TRUE(Chosen_Cells::allByName().names({1, 2, 3}));
}

TEST(ChosenCells, TheseAreJustThese) {
    const Chosen_Cells these = Chosen_Cells::these({{1, 2, 3}});
    EXPECT_TRUE(these.names({1, 2, 3}));
    EXPECT_FALSE(these.holds({1, 2, 4}));
    EXPECT_FALSE(Chosen_Cells::these({}).holds({1, 2, 3})) << "none at all";
    EXPECT_FALSE(Chosen_Cells::these({}).all());
}

} // namespace
} // namespace zorvane::commission
