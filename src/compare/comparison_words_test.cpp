// SPDX-License-Identifier: MIT
#include "compare/comparison_words.h"

#include <gtest/gtest.h>

namespace zorvane::compare {
namespace {

TEST(ComparisonWords, EachKindOfRowIsCountedInItsOwnWords) {
    Counts counts;
    EXPECT_EQ(countsText(counts), "0 values");
    counts.add(Sign::Differs);
    EXPECT_EQ(countsText(counts), "1 value: 1 differs");
    for (const Sign sign : allSigns)
        counts.add(sign);
    EXPECT_EQ(countsText(counts),
              "8 values: 2 differ, 1 on one side only, 1 read only, 1 changing, 1 not read, "
              "1 left out, 1 equal");
}

} // namespace
} // namespace zorvane::compare
