// SPDX-License-Identifier: MIT
#include "commission/folder/wall_clock.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

TEST(WallClock, AMomentInUtcInLocalTimeAndInAName) {
    const Wall_Time time{1795333205123, 90};
    EXPECT_EQ(utcText(time), "2026-11-22T07:40:05.123Z");
    EXPECT_EQ(localText(time), "2026-11-22T09:10:05+01:30");
    EXPECT_EQ(nameText(time), "20261122-091005");
}

TEST(WallClock, WestOfGreenwichAndBeforeMidnight) {
    const Wall_Time time{1795305600000 - 1, -480};
    EXPECT_EQ(utcText(time), "2026-11-21T23:59:59.999Z");
    EXPECT_EQ(localText(time), "2026-11-21T15:59:59-08:00");
}

TEST(WallClock, InUtcTheZoneIsPlusZero) {
    EXPECT_EQ(localText({1795333205123, 0}), "2026-11-22T07:40:05+00:00");
}

} // namespace
} // namespace zorvane::commission
