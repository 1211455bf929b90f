// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/register_ranges.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(RegisterRanges, JoinNeighbours) {
    const std::vector<Register_Range> ranges = rangesOf({10, 11, 12, 20});
    ASSERT_EQ(ranges.size(), 2U);
    EXPECT_EQ(namedRange(ranges[0]), "Registers 10-12");
    EXPECT_EQ(namedRange(ranges[1]), "Register 20");
}

TEST(RegisterRanges, AreOneTextInShort) {
    EXPECT_EQ(registersText({}), "");
    EXPECT_EQ(registersText({5}), "5");
    EXPECT_EQ(registersText({12, 13, 14, 20, 34, 35}), "12-14, 20, 34-35");
}

TEST(RegisterRanges, EndWithTheNumberOfRegistersThatAreLeft) {
    EXPECT_EQ(registersText({0, 2, 4, 6, 7, 8}, 3), "0, 2, 4 and 3 more");
    EXPECT_EQ(registersText({0, 2, 4}, 3), "0, 2, 4");
}

} // namespace
} // namespace zorvane
