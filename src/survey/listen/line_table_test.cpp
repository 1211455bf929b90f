// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/listen/line_table.h"

#include <gtest/gtest.h>

#include <random>

namespace zorvane::survey {
namespace {

using zorvane::testing::bytesOf;
using zorvane::testing::withCrc;

Heard_Frame heard(const char* pairs, Micros at) {
    Heard_Frame frame;
    frame.bytes = withCrc(bytesOf(pairs));
    frame.firstAt = frame.lastAt = at;
    return frame;
}

using zorvane::testing::ms;

TEST(LineTable, TellsWhatIsAskedHowOftenAndHowFastItIsAnswered) {
    Line_Table table;
    for (Micros i = 0; i < 5; ++i) {
        const Micros at = i * 500 * ms;
        table.take({heard("01 03 00 64 00 0A", at), heard("01 03 02 00 01", at + 20 * ms)});
        table.take({heard("01 06 00 01 00 05", at + 100 * ms), heard("01 86 02", at + 130 * ms)});
    }
    table.take({heard("02 03 00 00 00 01", 3000 * ms), std::nullopt});
    table.take({std::nullopt, heard("03 03 02 00 01", 3100 * ms)});

    ASSERT_EQ(table.askings().size(), 3U);
    const Asking& polled = table.askings().at({1, 3, 0x64, 10});
    EXPECT_EQ(polled.times, 5U);
    EXPECT_EQ(polled.answered, 5U);
    EXPECT_EQ(polled.refused, 0U);
    EXPECT_EQ(polled.period(), 500 * ms);
    EXPECT_EQ(polled.answerTimes.median(), 20 * ms);
    EXPECT_EQ(table.askings().at({1, 6, 1, 1}).refused, 5U);
    EXPECT_EQ(table.askings().at({2, 3, 0, 1}).answered, 0U);
    EXPECT_EQ(table.askings().at({2, 3, 0, 1}).period(), 0);

    ASSERT_EQ(table.units().size(), 3U);
    EXPECT_EQ(table.units().at(1).requests, 10U);
    EXPECT_EQ(table.units().at(1).refusals, 5U);
    EXPECT_EQ(table.units().at(2).unpaired, 1U);
    EXPECT_EQ(table.units().at(3).unpaired, 1U);
}

TEST(LineTable, CountsARequestToAllAsAnswered) {
    Line_Table table;
    table.take({heard("00 06 00 01 00 05", 0), std::nullopt});
    EXPECT_EQ(table.units().at(0).requests, 1U);
    EXPECT_EQ(table.units().at(0).unpaired, 0U);
}

/// Every frame is a request or an answer, and every one that isn't half of a pair is unpaired.
TEST(LineTable, AddsUp) {
    std::mt19937_64 dice(3);
    const auto upTo = [&dice](int most) { return std::uniform_int_distribution<int>(0, most)(dice); };
    for (int round = 0; round < 100; ++round) {
        Line_Table table;
        std::uint64_t frames = 0;
        std::uint64_t pairs = 0;
        for (int i = upTo(200); i > 0; --i) {
            const auto unit = static_cast<std::uint8_t>(1 + upTo(5));
            const auto first = static_cast<std::uint8_t>(upTo(3));
            Heard_Frame request;
            request.bytes = withCrc({unit, 3, 0, first, 0, 1});
            Heard_Frame answer;
            answer.bytes = withCrc({unit, 3, 2, 0, 1});
            const int which = upTo(2);
            frames += which == 0 ? 2 : 1;
            pairs += which == 0 ? 1 : 0;
            table.take({which == 2 ? std::nullopt : std::optional(request),
                        which == 1 ? std::nullopt : std::optional(answer)});
        }
        const Unit_Traffic sum = table.sum();
        EXPECT_EQ(sum.requests + sum.answers, frames);
        EXPECT_EQ(sum.unpaired, frames - 2 * pairs);
        std::uint64_t asked = 0;
        for (const auto& [what, asking] : table.askings())
            asked += asking.times;
        EXPECT_EQ(asked, sum.requests);
    }
}

TEST(LineTable, KeepsNoMoreThanSoManyThingsApart) {
    Line_Table table;
    for (unsigned address = 0; address < 12000; ++address) {
        Heard_Frame request;
        request.bytes = withCrc(
            {1, 3, static_cast<std::uint8_t>(address >> 8U), static_cast<std::uint8_t>(address), 0, 1});
        table.take({request, std::nullopt});
    }
    EXPECT_EQ(table.askings().size(), Line_Table::mostAskings);
    EXPECT_EQ(table.units().at(1).requests, 12000U);
}

TEST(LineLoad, IsTheShareOfTheTimeInWhichBytesPass) {
    const Line_Settings line{9600, 'N', 8, 1}; // 960 bytes a second
    EXPECT_DOUBLE_EQ(loadPercent(line, 480, microsPerSecond), 50);
    EXPECT_DOUBLE_EQ(loadPercent(line, 5000, microsPerSecond), 100);
    EXPECT_DOUBLE_EQ(loadPercent(line, 5000, 0), 0);
}

} // namespace
} // namespace zorvane::survey
