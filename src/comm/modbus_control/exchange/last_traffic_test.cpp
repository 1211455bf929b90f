// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/last_traffic.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

Exchange_Record exchangeOf(std::int32_t unit) {
    Exchange_Record record;
    record.unit = unit;
    return record;
}

TEST(LastTraffic, KeepsTheNewestInTheirOrder) {
    Last_Traffic last(3);
    last.portNoted(1, "opened");
    last.exchangeSeen(exchangeOf(5));
    last.straySeen({2, {0xFF}, "noise"});
    last.exchangeSeen(exchangeOf(6));
    ASSERT_EQ(last.entries().size(), 3U);
    EXPECT_EQ(std::get<Exchange_Record>(last.entries()[0]).unit, 5);
    EXPECT_EQ(std::get<Stray_Record>(last.entries()[1]).what, "noise");
    EXPECT_EQ(std::get<Exchange_Record>(last.entries()[2]).unit, 6);
}

TEST(LastTraffic, HandsEachOn) {
    Last_Traffic monitor(10);
    Last_Traffic last(1);
    last.exchangeSeen(exchangeOf(1)); // nobody there yet
    last.setNext(&monitor);
    last.exchangeSeen(exchangeOf(2));
    last.straySeen({});
    last.portNoted(3, "lost");
    EXPECT_EQ(monitor.entries().size(), 3U);
    last.setNext(nullptr);
    last.exchangeSeen(exchangeOf(3));
    EXPECT_EQ(monitor.entries().size(), 3U);
    EXPECT_EQ(last.entries().size(), 1U);
}

} // namespace
} // namespace zorvane
