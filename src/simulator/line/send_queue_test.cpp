// SPDX-License-Identifier: MIT
#include "simulator/line/send_queue.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

using namespace std::chrono_literals;

constexpr Instant queueStart = Instant(1000s);

Frame_Record named(const char* note) { return {Direction::Out, {}, {}, "", {}, note}; }

TEST(SendQueue, WithoutAPaceAFrameGoesAtOnceWhenItsTimeHasCome) {
    Send_Queue queue{Line_Pace()};
    queue.add({1, 2, 3}, queueStart, named("a"));
    EXPECT_EQ(queue.nextDue(), queueStart);
    EXPECT_TRUE(queue.take(queueStart - 1ns).bytes.empty());
    const auto due = queue.take(queueStart);
    EXPECT_EQ(due.bytes, (Bytes{1, 2, 3}));
    ASSERT_EQ(due.finished.size(), 1U);
    EXPECT_EQ(due.finished[0].note, "a");
    EXPECT_FALSE(queue.nextDue());
}

TEST(SendQueue, BytesComeOneByOneAsTheyHavePassedTheLine) {
    const Line_Pace pace(9600, 10);
    Send_Queue queue(pace);
    queue.add({1, 2, 3}, queueStart, named("a"));
    EXPECT_EQ(queue.nextDue(), queueStart + pace.wireTime(1));
    EXPECT_EQ(queue.take(queueStart + pace.wireTime(1)).bytes, (Bytes{1}));
    EXPECT_EQ(queue.nextDue(), queueStart + pace.wireTime(2));
    EXPECT_TRUE(queue.take(queueStart + pace.wireTime(2) - 1ns).bytes.empty());
    EXPECT_EQ(queue.take(queueStart + pace.wireTime(2)).bytes, (Bytes{2}));
    EXPECT_EQ(queue.take(queueStart + pace.wireTime(3)).finished.size(), 1U);
}

TEST(SendQueue, ALateWakingCatchesUpAndTheEndStaysWhereItWas) {
    const Line_Pace pace(9600, 10);
    Send_Queue queue(pace);
    queue.add({1, 2, 3}, queueStart, named("a"));
    EXPECT_EQ(queue.take(queueStart + pace.wireTime(2)).bytes, (Bytes{1, 2}));
    EXPECT_EQ(queue.nextDue(), queueStart + pace.wireTime(3));
}

TEST(SendQueue, ASecondFrameWaitsForTheFirstAndASilence) {
    const Line_Pace pace(19200, 10);
    Send_Queue queue(pace);
    queue.add({1, 2}, queueStart + 300ms, named("late"));
    queue.add({3}, queueStart, named("next"));
    const Instant second = queueStart + 300ms + pace.wireTime(2) + pace.silence();
    EXPECT_EQ(queue.take(second).bytes, (Bytes{1, 2}));
    EXPECT_EQ(queue.nextDue(), second + pace.wireTime(1));
}

TEST(SendQueue, CanBeEmptied) {
    Send_Queue queue{Line_Pace()};
    queue.add({1}, queueStart, named("a"));
    queue.clear();
    EXPECT_EQ(queue.frames(), 0U);
    EXPECT_FALSE(queue.nextDue());
}

} // namespace
} // namespace zorvane::simulator
