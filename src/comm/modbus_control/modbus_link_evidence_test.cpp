// SPDX-License-Identifier: MIT
// How many writes have ended, and whether a controller was seen on the line.
#include "comm/modbus_control/testing/link_rig.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::Link_Rig;
using testing::ms;

/// One single write of 5 to register 3, until its end.
void writeOne(Link_Rig& rig) {
    rig.link.PresetSingleRegister(0, 3, 5);
    ASSERT_TRUE(rig.writeEnds());
}

TEST(ModbusLinkEvidence, EachWriteThatEndsIsCounted) {
    Link_Rig rig;
    rig.link.PrepareScan();
    writeOne(rig);
    writeOne(rig);
    EXPECT_EQ(rig.link.WritesEnded(), 2U);
    rig.link.PresetSingleRegister(0, 70000, 5); // no address on the wire
    EXPECT_EQ(rig.link.WritesEnded(), 3U);
}

TEST(ModbusLinkEvidence, BlockInTwoFramesIsOneWrite) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetMultipleRegisters(0, 1, std::vector<std::int32_t>(200, 7));
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.log.exchanges.size(), 2U);
    EXPECT_EQ(rig.link.WritesEnded(), 1U);
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Taken);
}

// Who answers.

TEST(ModbusLinkEvidence, RepeatOfASingleWriteProvesNoController) {
    Link_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) { rig.reply(request, 1 * ms); }; // an echo, and nobody
    rig.link.PrepareScan();
    writeOne(rig);
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Taken);
    EXPECT_FALSE(rig.link.ControllerSeen());
}

TEST(ModbusLinkEvidence, AnswerBehindTheEchoOfASingleWriteIsAController) {
    Link_Rig rig([] {
        Port_Settings settings = Link_Rig::defaults();
        settings.adapterEchoes = true;
        return settings;
    }());
    rig.faults = [&](int, const Byte_Array& request) {
        rig.send(request, rig.requestTime());
        rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.link.PrepareScan();
    writeOne(rig);
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Taken);
    EXPECT_TRUE(rig.link.ControllerSeen());
}

TEST(ModbusLinkEvidence, ExceptionIsAController) {
    Link_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 2), 5 * ms); };
    rig.link.PrepareScan();
    writeOne(rig);
    EXPECT_TRUE(rig.link.ControllerSeen());
}

TEST(ModbusLinkEvidence, AnsweredBlockWriteIsAController) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetMultipleRegisters(0, 1, {1, 2});
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.ControllerSeen());
}

TEST(ModbusLinkEvidence, AnsweredReadIsAControllerUntilThePortIsOpenedAgain) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_TRUE(rig.link.ControllerSeen());
    rig.link.StopScan();
    rig.link.ClosePort();
    rig.link.EndSession();
    EXPECT_TRUE(rig.link.ControllerSeen());
    rig.link.PrepareScan();
    EXPECT_FALSE(rig.link.ControllerSeen());
}

} // namespace
} // namespace zorvane
