// SPDX-License-Identifier: MIT
#include "simulator/line/mbap_collector.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zorvane::simulator {
namespace {

const Instant now = Instant() + std::chrono::seconds(1);

/// A check sum that a test can read.
Bytes sealed(Bytes_View body) {
    Bytes frame(body.begin(), body.end());
    frame.insert(frame.end(), {0xCC, 0xCC});
    return frame;
}

const Bytes readTwo{0x12, 0x34, 0, 0, 0, 6, 1, 3, 0, 100, 0, 2};

TEST(MbapCollector, ARequestBecomesTheFrameOfASerialLine) {
    Mbap_Collector collector(sealed);
    collector.feed(readTwo, now);
    const auto arrival = collector.next(now);
    ASSERT_TRUE(arrival.has_value());
    EXPECT_EQ(arrival->frame, (Bytes{1, 3, 0, 100, 0, 2, 0xCC, 0xCC}));
    EXPECT_EQ(arrival->passed, readTwo);
    EXPECT_EQ(arrival->number, 0x1234);
    EXPECT_EQ(arrival->broken, "");
    EXPECT_EQ(arrival->wireEnd, now);
    EXPECT_FALSE(collector.next(now).has_value());
}

TEST(MbapCollector, ARequestMayComeInPiecesAndTwoAtOnce) {
    Mbap_Collector collector(sealed);
    for (const std::uint8_t byte : readTwo) {
        EXPECT_FALSE(collector.next(now).has_value());
        collector.feed(Bytes{byte}, now);
    }
    EXPECT_FALSE(collector.deadline().has_value()) << "a network's pieces may come any time";
    collector.feed(readTwo, now);
    EXPECT_TRUE(collector.next(now).has_value());
    EXPECT_TRUE(collector.next(now).has_value());
    EXPECT_FALSE(collector.next(now).has_value());
}

TEST(MbapCollector, BytesThatBeginNoFrameAreGivenUp) {
    for (const Bytes& bytes :
         {Bytes{1, 3, 0, 100, 0, 2, 5, 5}, Bytes{0, 1, 0, 0, 0, 1, 1}, Bytes{0, 1, 0, 0, 1, 0}}) {
        Mbap_Collector collector(sealed);
        collector.feed(bytes, now);
        const auto arrival = collector.next(now);
        ASSERT_TRUE(arrival.has_value());
        EXPECT_EQ(arrival->broken, "noise");
        EXPECT_EQ(arrival->passed, bytes);
        collector.feed(readTwo, now);
        EXPECT_EQ(collector.next(now)->broken, "");
    }
}

TEST(MbapCollector, ARequestOfAnotherLengthThanItsFunctionHasIsNone) {
    Mbap_Collector collector(sealed);
    collector.feed(Bytes{0, 1, 0, 0, 0, 5, 1, 3, 0, 100, 0}, now);
    EXPECT_EQ(collector.next(now)->broken, "wrong length");
    collector.feed(Bytes{0, 1, 0, 0, 0, 2, 1, 99}, now);
    EXPECT_EQ(collector.next(now)->broken, "") << "a function that isn't known";
}

TEST(MbapCollector, AnAnswerGoesOutUnderTheNumberOfItsRequest) {
    Mbap_Collector collector(sealed);
    collector.feed(readTwo, now);
    const auto arrival = collector.next(now);
    EXPECT_EQ(collector.enveloped(Bytes{1, 3, 4, 0, 7, 0, 8, 0xCC, 0xCC}, *arrival),
              (Bytes{0x12, 0x34, 0, 0, 0, 7, 1, 3, 4, 0, 7, 0, 8}));
}

TEST(MbapCollector, NothingIsLeftAfterClearing) {
    Mbap_Collector collector(sealed);
    collector.feed(Bytes{0x12, 0x34, 0}, now);
    collector.clear();
    collector.feed(readTwo, now);
    EXPECT_EQ(collector.next(now)->passed, readTwo);
}

} // namespace
} // namespace zorvane::simulator
