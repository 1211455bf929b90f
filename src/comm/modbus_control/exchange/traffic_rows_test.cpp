// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/traffic_rows.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

constexpr Micros midnight = 500;
constexpr Micros fiveToThree = ((14 * 60 + 55) * 60LL + 7) * microsPerSecond;

Exchange_Record readOfTwo() {
    Exchange_Record exchange;
    exchange.at = midnight + fiveToThree + 250 * microsPerMs;
    exchange.duration = 34260;
    exchange.unit = 7;
    exchange.firstRegister = 40100;
    exchange.wireAddress = 99;
    exchange.count = 2;
    exchange.values = {1234, 65531};
    exchange.good = true;
    exchange.result = "good";
    exchange.sent = {0x07, 0x03, 0x00, 0x63, 0x00, 0x02};
    exchange.received = {0x07, 0x03, 0x04};
    return exchange;
}

std::string row(const Traffic_Entry& entry) {
    std::string text;
    for (const Traffic_Column column : trafficColumns)
        text += trafficText(entry, column, midnight) + "|";
    return text;
}

TEST(TrafficRows, AReadWithBothNumbersAndDecodedValues) {
    EXPECT_EQ(row(readOfTwo()), "14:55:07.250|34.3|7|3 read|40100-40101|99-100|1234, 65531 (-5)|good|");
    EXPECT_EQ(rawBytes(readOfTwo()), "Tx: 07 03 00 63 00 02\nRx: 07 03 04");
    EXPECT_FALSE(trafficFailed(readOfTwo()));
}

TEST(TrafficRows, WritesByTheirFunction) {
    Exchange_Record write = readOfTwo();
    write.function = Function_Code::PresetSingleRegister;
    write.count = 1;
    write.values = {5};
    EXPECT_EQ(row(write), "14:55:07.250|34.3|7|6 write|40100|99|5|good|");
    write.function = Function_Code::PresetMultipleRegisters;
    EXPECT_EQ(trafficText(write, Traffic_Column::Function, midnight), "16 write block");
}

TEST(TrafficRows, ARangeThatNoLineHasIsShownAsItIs) {
    Exchange_Record read = readOfTwo();
    read.firstRegister = 2147483647;
    EXPECT_EQ(trafficText(read, Traffic_Column::Registers, midnight), "2147483647-2147483648");
}

TEST(TrafficRows, ANumberBelow0StandsBehindTheRegistersOwn) {
    Exchange_Record read = readOfTwo();
    read.values = {0, 1, 32767, 32768, 65535};
    EXPECT_EQ(trafficText(read, Traffic_Column::Values, midnight), "0, 1, 32767, 32768 (-32768), 65535 (-1)");
}

TEST(TrafficRows, TimesAreRoundedToATenth) {
    Exchange_Record read = readOfTwo();
    for (const auto& [duration, text] :
         {std::pair<Micros, const char*>{49, "0.0"}, {50, "0.1"}, {1049, "1.0"}}) {
        read.duration = duration;
        EXPECT_EQ(trafficText(read, Traffic_Column::Duration, midnight), text);
    }
}

TEST(TrafficRows, AFailedTryNamesTheTestThatFailed) {
    Exchange_Record failed = readOfTwo();
    failed.good = false;
    failed.values.clear();
    failed.received.clear();
    failed.result = "no answer";
    EXPECT_EQ(row(failed), "14:55:07.250|34.3|7|3 read|40100-40101|99-100||no answer|");
    EXPECT_EQ(rawBytes(failed), "Tx: 07 03 00 63 00 02\nRx: nothing");
    EXPECT_TRUE(trafficFailed(failed));
}

TEST(TrafficRows, StrayBytesAndPortNotesAreRowsToo) {
    const Stray_Record stray{midnight, {0xFF, 0x00}, "noise"};
    EXPECT_EQ(row(stray), "00:00:00.000||||||" + std::string("|2 bytes outside an exchange: noise|"));
    EXPECT_EQ(rawBytes(stray), "Rx: FF 00");
    EXPECT_EQ(row(Stray_Record{midnight, {0xFF}, "noise"}),
              "00:00:00.000|||||||1 byte outside an exchange: noise|");
    EXPECT_TRUE(trafficFailed(stray));
    const Port_Note note{midnight, "The port is open."};
    EXPECT_EQ(row(note), "00:00:00.000|||||||The port is open.|");
    EXPECT_EQ(rawBytes(note), "");
    EXPECT_FALSE(trafficFailed(note));
}

TEST(TrafficRows, ALineHasTabsAndTheBytesBehind) {
    EXPECT_EQ(trafficHeadingLine(),
              "Time\tms\tUnit\tFunction\tRegisters\tOn the wire\tValues\tResult\tBytes");
    EXPECT_EQ(trafficLine(readOfTwo(), midnight),
              "14:55:07.250\t34.3\t7\t3 read\t40100-40101\t99-100\t1234, 65531 (-5)\tgood\t"
              "Tx: 07 03 00 63 00 02 Rx: 07 03 04");
}

TEST(TrafficRows, TimeOfDayBeginsAnewEachDay) {
    constexpr Micros day = 24 * 60 * 60 * microsPerSecond;
    EXPECT_EQ(timeOfDayText(day - 1), "23:59:59.999");
    EXPECT_EQ(timeOfDayText(microsPerSecond), "00:00:01.000");
    EXPECT_EQ(timeOfDayText(60 * microsPerSecond), "00:01:00.000");
    EXPECT_EQ(timeOfDayText(60 * microsPerSecond - 1), "00:00:59.999");
    EXPECT_EQ(timeOfDayText(3600 * microsPerSecond), "01:00:00.000");
    EXPECT_EQ(timeOfDayText(3600 * microsPerSecond - 1), "00:59:59.999");
    EXPECT_EQ(timeOfDayText(day), "00:00:00.000");
    EXPECT_EQ(timeOfDayText(3 * day + 61 * microsPerSecond), "00:01:01.000");
    EXPECT_EQ(timeOfDayText(-microsPerMs), "23:59:59.999");
}

TEST(TrafficRows, TheOldestGoWhenThereAreTooMany) {
    Traffic_Rows rows(3);
    rows.add({Port_Note{1, "a"}, Port_Note{2, "b"}});
    EXPECT_EQ(rows.surplus(1), 0U);
    EXPECT_EQ(rows.surplus(2), 1U);
    rows.dropOldest(rows.surplus(2));
    rows.add({Port_Note{3, "c"}, Port_Note{4, "d"}});
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(std::get<Port_Note>(rows.at(0)).text, "b");
    EXPECT_EQ(rows.surplus(5), 3U);
    rows.clear();
    EXPECT_EQ(rows.size(), 0U);
    EXPECT_EQ(Traffic_Rows().limit(), 100000U);
}

} // namespace
} // namespace zorvane
