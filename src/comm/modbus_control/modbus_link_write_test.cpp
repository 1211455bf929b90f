// SPDX-License-Identifier: MIT
// Writes through the link: what goes out, and when one counts as failed.
#include "comm/modbus_control/testing/link_rig.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;
using ::testing::ElementsAre;
using testing::Link_Rig;
using testing::ms;
using testing::withCrc;

TEST(ModbusLinkWrite, WritesGoOutBeforeTheScan) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.PresetSingleRegister(0, 3, -5);
    EXPECT_TRUE(rig.link.WriteBusy());
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_FALSE(rig.link.WriteFailed());
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.log.exchanges[1].function, Function_Code::PresetSingleRegister);
    EXPECT_EQ(rig.slave.registers[3], 65531);
    EXPECT_EQ(rig.link.RegisterValue(0, 3), -5);
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_EQ(rig.log.exchanges[2].function, Function_Code::ReadHoldingRegisters);
}

TEST(ModbusLinkWrite, ALongGoesOutAsItsLow16Bits) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 0x12345);
    rig.link.PresetMultipleRegisters(0, 2, {65536, -1, 70000});
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.slave.registers[1], 0x2345);
    EXPECT_EQ(rig.slave.registers[2], 0);
    EXPECT_EQ(rig.slave.registers[3], 65535);
    EXPECT_EQ(rig.slave.registers[4], 4464);
    EXPECT_EQ(rig.link.RegisterValue(0, 4), 4464);
}

TEST(ModbusLinkWrite, AWriteNeedsNoScan) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    rig.link.EndSession();
    rig.link.PresetSingleRegister(1, 9, 3);
    ASSERT_TRUE(rig.writeEnds());
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.log.exchanges.size(), 1U);
}

TEST(ModbusLinkWrite, AWriteAbove123RegistersGoesOutInSeveralFrames) {
    Link_Rig rig;
    rig.link.PrepareScan();
    std::vector<std::int32_t> values(300);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<std::int32_t>(i);
    }
    rig.link.PresetMultipleRegisters(0, 1000, values);
    ASSERT_TRUE(rig.writeEnds());
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_EQ(rig.log.exchanges[0].count, 123);
    EXPECT_EQ(rig.log.exchanges[1].firstRegister, 1123);
    EXPECT_EQ(rig.log.exchanges[2].count, 54);
    for (std::uint16_t i = 0; i < 300; ++i) {
        EXPECT_EQ(rig.slave.registers[static_cast<std::uint16_t>(1000 + i)], i);
    }
}

TEST(ModbusLinkWrite, EveryPartOfAWriteHasItsOwnTries) {
    Link_Rig rig;
    rig.faults = [&](int number, const Byte_Array& request) {
        if (number % 3 == 2) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.link.PrepareScan();
    rig.link.PresetMultipleRegisters(0, 100, std::vector<std::int32_t>(200, 7));
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_FALSE(rig.link.WriteFailed());
    EXPECT_EQ(rig.log.exchanges.size(), 6U);
    EXPECT_EQ(rig.slave.registers[299], 7);
}

TEST(ModbusLinkWrite, AFailedPartEndsTheWholeWrite) {
    Link_Rig rig;
    rig.faults = [&](int number, const Byte_Array& request) {
        rig.reply(number == 0 ? rig.slave.answer(request) : rig.slave.exception(request, 4), 5 * ms);
    };
    rig.link.PrepareScan();
    rig.link.PresetMultipleRegisters(0, 0, std::vector<std::int32_t>(300, 9));
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_EQ(rig.port.written.size(), 2U);
    EXPECT_EQ(rig.link.LastResponse(), "Server device failure (exception 4)");
    EXPECT_EQ(rig.link.RegisterValue(0, 122), 9) << "the part that was answered well";
    EXPECT_EQ(rig.link.RegisterValue(0, 123), 0);
}

TEST(ModbusLinkWrite, BusyEndsAWriteWithoutAnotherTry) {
    Link_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 6), 5 * ms); };
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 5);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_EQ(rig.link.LastResponse(), "BUSY");
    EXPECT_EQ(rig.port.written.size(), 1U);
    EXPECT_EQ(rig.link.RegisterValue(0, 1), 0);
}

TEST(ModbusLinkWrite, BeginsWithoutTheLastResponse) {
    Link_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 6), 5 * ms); };
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 5);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.link.LastResponse(), "BUSY");
    rig.link.PresetSingleRegister(0, 1, 5);
    EXPECT_TRUE(rig.link.WriteBusy());
    EXPECT_EQ(rig.link.LastResponse(), "");
}

TEST(ModbusLinkWrite, WriteFailedStaysUntilCleared) {
    Link_Rig rig;
    bool silent = true;
    rig.faults = [&](int, const Byte_Array& request) {
        if (!silent) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 5);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_EQ(rig.port.written.size(), 3U);
    silent = false;
    rig.link.PresetSingleRegister(0, 1, 6);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_FALSE(rig.link.CommLost());
    rig.link.ClearWriteFailed();
    EXPECT_FALSE(rig.link.WriteFailed());
}

TEST(ModbusLinkWrite, StopScanEndsAPendingWriteAsFailed) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 5);
    rig.clock.runFor(5 * ms);
    rig.link.StopScan();
    EXPECT_FALSE(rig.link.WriteBusy());
    EXPECT_TRUE(rig.link.WriteFailed());
    rig.clock.runFor(microsPerSecond);
    EXPECT_TRUE(rig.log.exchanges.empty());
}

TEST(ModbusLinkWrite, ClosePortAloneEndsAPendingWriteAsFailed) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 5);
    rig.clock.runFor(5 * ms);
    rig.link.ClosePort();
    EXPECT_FALSE(rig.link.WriteBusy());
    EXPECT_TRUE(rig.link.WriteFailed());
    rig.link.PrepareScan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_TRUE(rig.log.exchanges.empty());
}

TEST(ModbusLinkWrite, AWriteWithoutAnOpenPortFailsAtOnce) {
    Link_Rig rig;
    rig.link.PresetSingleRegister(0, 1, 5);
    EXPECT_FALSE(rig.link.WriteBusy());
    EXPECT_TRUE(rig.link.WriteFailed());
}

TEST(ModbusLinkWrite, NothingIsEverBroadcast) {
    Port_Settings settings = Link_Rig::defaults();
    settings.slave = 9;
    Link_Rig rig(settings);
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 5);
    rig.clock.runFor(20 * ms);
    ASSERT_EQ(rig.port.written.size(), 1U);
    EXPECT_EQ(rig.port.written[0].at(0), 9);
    rig.link.StopScan();
    rig.link.ClearWriteFailed();
    for (const std::int32_t slave : {-1, 248, 256}) {
        rig.link.PresetSingleRegister(slave, 1, 5);
        EXPECT_TRUE(rig.link.WriteFailed());
        EXPECT_EQ(rig.link.LastResponse(), "Slave number " + std::to_string(slave) + " is not 1 to 247");
    }
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.written.size(), 1U);
}

TEST(ModbusLinkWrite, SlavesGoFrom1To247) {
    for (const std::uint8_t slave : {std::uint8_t{1}, std::uint8_t{247}}) {
        Link_Rig rig;
        rig.slave = testing::Toy_Slave(slave);
        rig.link.PrepareScan();
        rig.link.PresetSingleRegister(slave, 1, 5);
        ASSERT_TRUE(rig.writeEnds());
        EXPECT_FALSE(rig.link.WriteFailed());
        EXPECT_EQ(rig.port.written.at(0).at(0), slave);
    }
}

TEST(ModbusLinkWrite, AddressesGoFrom0To65535BehindTheBase) {
    Link_Rig rig;
    rig.link.SetAddressBase(10);
    rig.link.PrepareScan();
    rig.link.PresetMultipleRegisters(0, 10, {3});
    rig.link.PresetMultipleRegisters(0, 65544, {4, 5});
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_FALSE(rig.link.WriteFailed());
    EXPECT_EQ(rig.slave.registers[0], 3);
    EXPECT_EQ(rig.slave.registers[65535], 5);
    rig.link.PresetMultipleRegisters(0, 65544, {4, 5, 6});
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_EQ(rig.link.LastResponse(), "Register 65546 has no address from 0 to 65535");
}

TEST(ModbusLinkWrite, AnAddressThatTheWireCannotCarryFails) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 65536, 5);
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_EQ(rig.link.LastResponse(), "Register 65536 has no address from 0 to 65535");
    rig.link.PresetMultipleRegisters(0, 65535, {1, 2});
    EXPECT_EQ(rig.link.LastResponse(), "Register 65536 has no address from 0 to 65535");
    rig.link.PresetMultipleRegisters(0, 5, {});
    EXPECT_EQ(rig.link.LastResponse(), "No registers from 5 on");
    EXPECT_TRUE(rig.port.written.empty());
}

} // namespace
} // namespace zorvane
