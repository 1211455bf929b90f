// SPDX-License-Identifier: MIT
#include "template/model/passing_values.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

struct PassingValues : testing::Test {
    Cell_Rec cell;
    Cell_Place place{1, 2, 3};
    Passing_Values passing;

    PassingValues() { cell.Value = "10"; }
    [[nodiscard]] std::string own() const { return passing.own(cell, place); }
};

TEST_F(PassingValues, APassingValueStandsInTheCellAndTheDocumentsOwnIsKnown) {
    passing.put(cell, place, "42");
    EXPECT_EQ(cell.Value, "42");
    EXPECT_EQ(own(), "10");
    passing.put(cell, place, "43");
    EXPECT_EQ(cell.Value, "43");
    EXPECT_EQ(own(), "10");
}

TEST_F(PassingValues, ACellThatNothingPassedHasItsOwnValue) {
    passing.put(cell, {1, 2, 4}, "42");
    cell.Value = "11";
    EXPECT_EQ(own(), "11");
}

TEST_F(PassingValues, AValueThatTheUserPutOverItIsTheDocumentsOwn) {
    passing.put(cell, place, "42");
    cell.Value = "11";
    EXPECT_EQ(own(), "11");
    passing.put(cell, place, "43");
    EXPECT_EQ(own(), "11");
}

TEST_F(PassingValues, ASettledValueIsTheDocumentsOwn) {
    passing.put(cell, place, "42");
    passing.settle({1, 2, 4});
    EXPECT_EQ(own(), "10");
    passing.settle(place);
    EXPECT_EQ(own(), "42");
    passing.put(cell, place, "43");
    EXPECT_EQ(own(), "42");
    passing.settle();
    EXPECT_EQ(own(), "43");
}

TEST_F(PassingValues, TheSameValueAgainIsNone) {
    passing.put(cell, place, "10");
    cell.Value = "11";
    EXPECT_EQ(own(), "11");
}

} // namespace
} // namespace zorvane
