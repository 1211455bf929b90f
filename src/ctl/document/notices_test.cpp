// SPDX-License-Identifier: MIT
// What the terminal program says beside a failure.

#include "ctl/document/notices.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

TEST(Notices, EachFailureSaysWhatToLookFor) {
    EXPECT_EQ(advice(5),
              "Look for a header that is only \"[\", or a list item whose \")\" stands before its \"(\".");
    EXPECT_EQ(advice(6), "Look for a number that is too large for its place.");
    EXPECT_EQ(
        advice(9),
        "Look for a field, row, column or block number that the template doesn't declare. A template needs "
        "FIELD_#_RC before the cells of a field, and at least one HOLDINGREGISTERSBLOCK_# line.");
    EXPECT_EQ(advice(13), "Look for a text where a number must stand.");
    EXPECT_EQ(advice(53), "Check the path.");
    EXPECT_EQ(advice(61), "Make room on the disk and try again.");
    EXPECT_EQ(advice(70), "Check the permissions of the file and of its folder.");
    EXPECT_EQ(advice(75), "Check that the file is a readable file and that its disk works.");
    EXPECT_EQ(advice(76), "Check that the folder is there.");
    EXPECT_EQ(advice(1000), "");
}

TEST(Notices, AFailureIsToldWithItsNumberAndAdvice) {
    std::ostringstream err;
    tellFailure(err, "site7.ABC", {76, "Path not found"});
    EXPECT_EQ(err.str(),
              "zorvanectl: site7.ABC: Path not found (failure 76). Check that the folder is there.\n");
}

} // namespace
} // namespace zorvane::ctl
