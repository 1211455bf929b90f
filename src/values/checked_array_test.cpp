// SPDX-License-Identifier: MIT
#include "values/checked_array.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zorvane {
namespace {

using doubles::failureNumber;

TEST(CheckedArray, AnIndexOutsideTheBoundsIsFailure9) {
    Checked_Array<int> array;
    array.redim(2);
    array(2) = 7;
    EXPECT_EQ(array(2), 7);
    EXPECT_EQ(failureNumber([&] { array(3) = 1; }), 9);
    EXPECT_EQ(failureNumber([&] { array(-1) = 1; }), 9);
}

TEST(CheckedArray, AnArrayThatWasNeverDimensionedHasNoBoundAndNoEntry) {
    const Checked_Array<int> array;
    EXPECT_FALSE(array.dimensioned());
    EXPECT_EQ(failureNumber([&] { (void)array.upperBound(); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)array(0); }), 9);
}

TEST(CheckedArray, CountsFromItsLowerBound) {
    Checked_Array<std::string, 1> array;
    array.redim(2);
    array(1) = "first";
    array(2) = "last";
    EXPECT_EQ(array.upperBound(), 2);
    EXPECT_EQ(failureNumber([&] { (void)array(0); }), 9);
}

TEST(CheckedArray, RedimEmptiesAndRedimPreserveKeeps) {
    Checked_Array<int> array;
    array.redim(1);
    array(0) = 5;
    array.redimPreserve(3);
    EXPECT_EQ(array(0), 5);
    EXPECT_EQ(array(3), 0);
    array.redimPreserve(0);
    array.redimPreserve(1);
    EXPECT_EQ(array(0), 5);
    EXPECT_EQ(array(1), 0) << "an entry that was cut off comes back empty";
    array.redim(1);
    EXPECT_EQ(array(0), 0);
}

TEST(CheckedArray, AnUpperBoundBelowTheLowerOneIsFailure9AndChangesNothing) {
    Checked_Array<int> array;
    array.redim(1);
    array(1) = 4;
    EXPECT_EQ(failureNumber([&] { array.redim(-1); }), 9);
    EXPECT_EQ(failureNumber([&] { array.redimPreserve(-2); }), 9);
    EXPECT_EQ(array(1), 4);
}

TEST(CheckedArray, EraseTakesTheDimensionsAway) {
    Checked_Array<int> array;
    array.redim(1);
    array.erase();
    EXPECT_FALSE(array.dimensioned());
    EXPECT_EQ(failureNumber([&] { (void)array.upperBound(); }), 9);
}

TEST(CheckedArray, HoldsEntriesThatCanOnlyBeMoved) {
    Checked_Array<std::unique_ptr<int>> array;
    array.redim(0);
    array(0) = std::make_unique<int>(3);
    array.redimPreserve(1);
    EXPECT_EQ(*array(0), 3);
}

} // namespace
} // namespace zorvane
