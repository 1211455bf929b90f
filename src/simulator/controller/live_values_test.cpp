// SPDX-License-Identifier: MIT
#include "simulator/controller/live_values.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace zorvane::simulator {
namespace {

constexpr std::uint16_t noBits = 0;

TEST(LiveValue, StartsAtTheBaseAndMovesByOneAReading) {
    std::uint16_t before = liveValue(500, {}, 1, 200, 0);
    EXPECT_EQ(before, 500);
    for (std::uint64_t reading = 1; reading < 100; ++reading) {
        const std::uint16_t now = liveValue(500, {}, 1, 200, reading);
        EXPECT_EQ(std::abs(now - before), 1) << reading;
        EXPECT_LE(std::abs(now - 500), 5) << reading;
        before = now;
    }
}

TEST(LiveValue, IsTheSameForTheSameSeed) {
    for (std::uint64_t reading = 0; reading < 40; ++reading)
        EXPECT_EQ(liveValue(500, {}, 9, 200, reading), liveValue(500, {}, 9, 200, reading));
}

TEST(LiveValue, KeepsItsSign) {
    for (std::uint64_t reading = 0; reading < 40; ++reading) {
        EXPECT_LT(liveValue(0, {}, 1, 200, reading), 0x8000);
        EXPECT_GE(liveValue(0xFFFF, {}, 1, 200, reading), 0x8000);
        EXPECT_GE(liveValue(0x8000, {}, 1, 200, reading), 0x8000);
    }
}

TEST(LiveValue, OfAnUnsignedRegisterMayPassTheMiddleButNotTheEnds) {
    bool passed = false;
    for (std::uint64_t reading = 0; reading < 40; ++reading) {
        passed = passed || liveValue(0x7FFF, {noBits, {}}, 1, 200, reading) > 0x7FFF;
        EXPECT_GT(liveValue(0xFFFF, {noBits, {}}, 1, 200, reading), 0xFF00);
    }
    EXPECT_TRUE(passed);
}

TEST(LiveValue, OfASignAndMagnitudeRegisterKeepsTheBitsAbove) {
    for (std::uint64_t reading = 0; reading < 40; ++reading)
        EXPECT_EQ(liveValue(133, {0xFF80, {}}, 1, 200, reading) & 0xFF80, 0x80);
}

TEST(LiveValue, OfAListGoesRoundItsCodes) {
    const Live_Range list{0, {0, 4, 9}};
    EXPECT_EQ(liveValue(4, list, 1, 200, 0), 4);
    EXPECT_EQ(liveValue(4, list, 1, 200, 1), 9);
    EXPECT_EQ(liveValue(4, list, 1, 200, 2), 0);
    EXPECT_EQ(liveValue(5, list, 1, 200, 3), 5);
}

} // namespace
} // namespace zorvane::simulator
