// SPDX-License-Identifier: MIT
// What the link knows of a register beyond its value: read since the port was opened, before that, or never.
#include "comm/modbus_control/testing/link_rig.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::Link_Rig;

constexpr std::int32_t ownSlave = 0;
constexpr Register_Reading read{Reading_Age::ThisOpening, std::nullopt};

/// Blocks 1-2 and 10-11; the slave refuses the second one as long as `refuses`, and is silent as long as
/// `silent`.
struct Two_Blocks : Link_Rig {
    Two_Blocks() {
        block(1, 2);
        block(10, 11);
        faults = [this](int, const Byte_Array& request) {
            if (silent) return;
            reply(request.at(3) == 10 && refuses ? slave.exception(request, 6) : slave.answer(request),
                  turnaround);
        };
    }
    bool refuses = false;
    bool silent = false;
};

TEST(ModbusLinkReadings, ARegisterThatWasReadIsToldFromOneThatWasNot) {
    Two_Blocks rig;
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), Register_Reading());
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), read);
    EXPECT_EQ(rig.link.readingOf(1, 2), read) << "the slave of the port settings has number 1";
    EXPECT_EQ(rig.link.readingOf(2, 2), Register_Reading());
    EXPECT_EQ(rig.link.readingOf(ownSlave, 3), Register_Reading());
    EXPECT_EQ(rig.link.readingOf(ownSlave, 10), Register_Reading());
}

TEST(ModbusLinkReadings, ARefusedBlockKeepsWhatItHadAndTellsTheAnswer) {
    Two_Blocks rig;
    rig.refuses = true;
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 11), (Register_Reading{Reading_Age::Never, "BUSY"}));
    rig.refuses = false;
    ASSERT_TRUE(rig.exchanges(4));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 11), read);
    rig.refuses = true;
    ASSERT_TRUE(rig.exchanges(6));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 11), (Register_Reading{Reading_Age::ThisOpening, "BUSY"}));
}

TEST(ModbusLinkReadings, SilenceIsAFaultWithoutWordsAfterAllTries) {
    Two_Blocks rig;
    rig.silent = true;
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), Register_Reading()) << "one try is left";
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), (Register_Reading{Reading_Age::Never, ""}));
}

TEST(ModbusLinkReadings, AnotherOpeningMakesThemOlder) {
    Two_Blocks rig;
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    rig.link.ClosePort();
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), read) << "nothing was opened since";
    rig.silent = true;
    rig.link.OpenPort();
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), (Register_Reading{Reading_Age::EarlierOpening, std::nullopt}));
    rig.silent = false;
    ASSERT_TRUE(rig.exchanges(5));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), read);
}

TEST(ModbusLinkReadings, APortThatWasLostIsOpenedAnew) {
    Two_Blocks rig;
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    rig.port.unplug();
    rig.silent = true;
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return rig.port.isOpen(); }, 30 * microsPerSecond));
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1).age, Reading_Age::EarlierOpening);
}

TEST(ModbusLinkReadings, WhatWasOnlyWrittenWasNotRead) {
    Two_Blocks rig;
    rig.link.OpenPort();
    rig.link.PresetSingleRegister(ownSlave, 10, 77);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.link.RegisterValue(ownSlave, 10), 77);
    EXPECT_EQ(rig.link.readingOf(ownSlave, 10), Register_Reading());
    rig.scan();
    ASSERT_TRUE(rig.exchanges(3));
    rig.link.PresetSingleRegister(ownSlave, 10, 78);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.link.readingOf(ownSlave, 10), read);
}

TEST(ModbusLinkReadings, ClearedBlocksForgetTheirReadings) {
    Two_Blocks rig;
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    rig.link.ClearBlocks();
    EXPECT_EQ(rig.link.readingOf(ownSlave, 1), Register_Reading());
}

TEST(ModbusLinkReadings, ABlockThatTheWireCannotCarryTellsWhy) {
    Link_Rig rig;
    rig.block(-1, 0);
    rig.scan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.link.readingOf(ownSlave, 0),
              (Register_Reading{Reading_Age::Never, "Register -1 has no address from 0 to 65535"}));
}

} // namespace
} // namespace zorvane
