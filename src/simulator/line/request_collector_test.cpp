// SPDX-License-Identifier: MIT
#include "simulator/line/request_collector.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

using namespace std::chrono_literals;

const Bytes readRequest{0x01, 0x03, 0x00, 0x64, 0x00, 0x05, 0xC4, 0x16};
const Bytes unknownFunction{0x01, 0x11, 0xC0, 0x2C};
constexpr Instant start = Instant(1000s);

/// A check sum is right when it is that of one of the two frames above.
bool rightSum(Bytes_View frame) {
    const Bytes bytes(frame.begin(), frame.end());
    return bytes == readRequest || bytes == unknownFunction;
}

Request_Collector unpaced() { return {Line_Pace(), rightSum}; }
Request_Collector at9600() { return {Line_Pace(9600, 10), rightSum}; }

Bytes_View part(const Bytes& bytes, std::size_t from, std::size_t count) {
    return Bytes_View(bytes).subspan(from, count);
}

TEST(RequestCollector, GivesARequestAsSoonAsItIsWhole) {
    Request_Collector collector = unpaced();
    collector.feed(part(readRequest, 0, 7), start);
    EXPECT_FALSE(collector.next(start));
    collector.feed(part(readRequest, 7, 1), start + 1ms);
    const auto arrival = collector.next(start + 1ms);
    ASSERT_TRUE(arrival);
    EXPECT_EQ(arrival->frame, readRequest);
    EXPECT_EQ(arrival->broken, "");
    EXPECT_EQ(arrival->wireEnd, start + 1ms);
    EXPECT_FALSE(collector.deadline());
}

TEST(RequestCollector, TakesTwoRequestsOfOneWriteApart) {
    Request_Collector collector = unpaced();
    collector.feed(readRequest, start);
    collector.feed(readRequest, start);
    EXPECT_EQ(collector.next(start)->frame, readRequest);
    EXPECT_EQ(collector.next(start)->frame, readRequest);
    EXPECT_FALSE(collector.next(start));
}

TEST(RequestCollector, TakesAnUnknownFunctionByItsCheckSum) {
    Request_Collector collector = unpaced();
    collector.feed(unknownFunction, start);
    EXPECT_EQ(collector.next(start)->frame, unknownFunction);
}

TEST(RequestCollector, ABytesTimeOnTheLineIsKeptWhenAllCameAtOnce) {
    Request_Collector collector = at9600();
    collector.feed(readRequest, start);
    const auto arrival = collector.next(start);
    ASSERT_TRUE(arrival);
    EXPECT_EQ(arrival->wireBegin, start);
    EXPECT_EQ(arrival->wireEnd, start + Line_Pace(9600, 10).wireTime(8));
}

TEST(RequestCollector, ASecondRequestWaitsForTheLine) {
    Request_Collector collector = at9600();
    collector.feed(readRequest, start);
    collector.feed(readRequest, start + 1ms);
    (void)collector.next(start + 1ms);
    const auto second = collector.next(start + 1ms);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->wireBegin, start + Line_Pace(9600, 10).wireTime(8));
}

TEST(RequestCollector, GivesUpATruncatedRequestAfterASilence) {
    Request_Collector collector = unpaced();
    collector.feed(part(readRequest, 0, 5), start);
    EXPECT_EQ(collector.deadline(), start + 20ms);
    EXPECT_FALSE(collector.next(start + 19ms));
    const auto arrival = collector.next(start + 20ms);
    ASSERT_TRUE(arrival);
    EXPECT_EQ(arrival->broken, "truncated");
    EXPECT_EQ(arrival->frame.size(), 5U);
    collector.feed(readRequest, start + 30ms);
    EXPECT_EQ(collector.next(start + 30ms)->frame, readRequest);
}

TEST(RequestCollector, ASilenceOfASlowLineIsLonger) {
    Request_Collector collector(Line_Pace(300, 11), rightSum);
    collector.feed(part(readRequest, 0, 1), start);
    EXPECT_EQ(collector.deadline(), start + Line_Pace(300, 11).wireTime(1) + Line_Pace(300, 11).silence());
}

TEST(RequestCollector, GivesUpAWrongCheckSumAndNoise) {
    Request_Collector collector = unpaced();
    Bytes bad = readRequest;
    bad.back() ^= 1U;
    collector.feed(bad, start);
    EXPECT_EQ(collector.next(start + 20ms)->broken, "bad CRC");
    collector.feed(Bytes{0xFF}, start + 40ms);
    EXPECT_EQ(collector.next(start + 60ms)->broken, "noise");
}

TEST(RequestCollector, NoiseBeforeARequestSpoilsItUntilTheNextSilence) {
    Request_Collector collector = unpaced();
    collector.feed(Bytes{0xFF}, start);
    collector.feed(readRequest, start);
    EXPECT_FALSE(collector.next(start));
    EXPECT_EQ(collector.next(start + 20ms)->frame.size(), 9U);
}

TEST(RequestCollector, NoiseWithoutAnEndIsGivenUpInPieces) {
    Request_Collector collector = unpaced();
    for (int i = 0; i < 5; ++i)
        collector.feed(Bytes(1000, 0xFF), start);
    EXPECT_EQ(collector.next(start)->frame.size(), 5000U);
    EXPECT_FALSE(collector.deadline());
}

TEST(RequestCollector, ABlockWriteLongerThanAnyFrameIsNoRequest) {
    Request_Collector collector(Line_Pace(), [](Bytes_View) { return true; });
    Bytes tooLong(264, 0);
    tooLong[1] = 16;
    tooLong[6] = 255;
    collector.feed(tooLong, start);
    EXPECT_FALSE(collector.next(start));
    EXPECT_EQ(collector.next(start + 20ms)->broken, "bad CRC");
}

} // namespace
} // namespace zorvane::simulator
