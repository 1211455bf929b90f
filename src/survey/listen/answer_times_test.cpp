// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/hand_clock.h"
#include "survey/listen/answer_times.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

using zorvane::testing::ms;

TEST(AnswerTimes, TellMedianAndNinetyNinthPercentile) {
    Answer_Times times;
    for (Micros i = 1; i <= 100; ++i)
        times.add(i * ms);
    EXPECT_EQ(times.count(), 100U);
    EXPECT_EQ(times.median(), 50 * ms);
    EXPECT_EQ(times.p99(), 99 * ms);
    EXPECT_EQ(times.percentile(100), 100 * ms);
    EXPECT_EQ(times.percentile(1), 1 * ms);
}

TEST(AnswerTimes, AreKeptToATenthOfAMillisecond) {
    Answer_Times times;
    times.add(12345);
    EXPECT_EQ(times.median(), 12300);
    times.add(-5);
    EXPECT_EQ(times.percentile(1), 0);
}

TEST(AnswerTimes, AreNothingWithoutAnswers) {
    EXPECT_EQ(Answer_Times().median(), 0);
    EXPECT_EQ(proposedTimeOutMs(Answer_Times()), 0);
}

std::int32_t proposalAfter(Micros time) {
    Answer_Times times;
    for (std::uint64_t i = 0; i < readsForProposal; ++i)
        times.add(time);
    return proposedTimeOutMs(times);
}

TEST(ProposedTimeOut, IsThreeTimesTheSlowestButFiftyMsMoreAtLeastUpToTheNextFifty) {
    EXPECT_EQ(proposalAfter(0), 50);
    EXPECT_EQ(proposalAfter(10 * ms), 100);       // 60
    EXPECT_EQ(proposalAfter(25 * ms), 100);       // 75
    EXPECT_EQ(proposalAfter(33 * ms), 100);       // 99
    EXPECT_EQ(proposalAfter(34 * ms), 150);       // 102
    EXPECT_EQ(proposalAfter(50 * ms), 150);       // 150
    EXPECT_EQ(proposalAfter(50 * ms + 100), 200); // 150.3
    EXPECT_EQ(proposalAfter(400 * ms), 1200);
}

/// One slow answer of fifty is beyond the 99th percentile's rank only from a hundred answers on.
TEST(ProposedTimeOut, CountsTheSlowestOfFifty) {
    Answer_Times times;
    for (int i = 0; i < 49; ++i)
        times.add(10 * ms);
    times.add(200 * ms);
    EXPECT_EQ(proposedTimeOutMs(times), 600);
}

} // namespace
} // namespace zorvane::survey
