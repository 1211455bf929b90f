// SPDX-License-Identifier: MIT
// What the link says of the write that ended last, whatever became of those before it.
#include "comm/modbus_control/testing/link_rig.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::Link_Rig;
using testing::ms;

/// The port is open and nothing is scanned. Without a script the controller is silent.
struct Outcome_Rig : Link_Rig {
    Outcome_Rig() {
        faults = [](int, const Byte_Array&) {};
        link.PrepareScan();
    }
    Write_Outcome write(std::int32_t value) {
        link.PresetSingleRegister(0, 1, value);
        EXPECT_TRUE(writeEnds());
        return link.LastWriteOutcome();
    }
    void answerFrom(int first) {
        faults = [this, first](int number, const Byte_Array& request) {
            if (number >= first) reply(slave.answer(request), 5 * ms);
        };
    }
    void refuseFrom(int first) {
        faults = [this, first](int number, const Byte_Array& request) {
            if (number >= first) reply(slave.exception(request, 3), 5 * ms);
        };
    }
};

TEST(ModbusLinkOutcome, NothingIsSaidBeforeTheFirstWriteAndWhileOneIsUnderWay) {
    Outcome_Rig rig;
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::None);
    rig.link.PresetSingleRegister(0, 1, 5);
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::None);
}

TEST(ModbusLinkOutcome, AGoodAnswerMeansTakenThoughAnEarlierWriteFailed) {
    Outcome_Rig rig;
    EXPECT_EQ(rig.write(5), Write_Outcome::Uncertain);
    rig.answerFrom(0);
    EXPECT_EQ(rig.write(6), Write_Outcome::Taken);
    EXPECT_TRUE(rig.link.WriteFailed()) << "the earlier one's, until it is cleared";
}

TEST(ModbusLinkOutcome, AnExceptionToTheFirstTryMeansRefused) {
    Outcome_Rig rig;
    rig.refuseFrom(0);
    EXPECT_EQ(rig.write(5), Write_Outcome::Refused);
}

TEST(ModbusLinkOutcome, AnExceptionToALaterTryLeavesTheFirstInDoubt) {
    Outcome_Rig rig;
    rig.refuseFrom(1);
    EXPECT_EQ(rig.write(5), Write_Outcome::Uncertain);
}

TEST(ModbusLinkOutcome, AWriteOfSeveralFramesIsTakenWithItsLast) {
    Outcome_Rig rig;
    rig.answerFrom(0);
    rig.link.PresetMultipleRegisters(0, 100, std::vector<std::int32_t>(200, 7));
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Taken);
}

TEST(ModbusLinkOutcome, AWriteOfWhichOneFrameWasTakenAndOneRefusedIsNotCertain) {
    Outcome_Rig rig;
    rig.faults = [&rig](int number, const Byte_Array& request) {
        rig.reply(number == 0 ? rig.slave.answer(request) : rig.slave.exception(request, 4), 5 * ms);
    };
    rig.link.PresetMultipleRegisters(0, 100, std::vector<std::int32_t>(200, 7));
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Uncertain);
}

TEST(ModbusLinkOutcome, AWriteThatIsStoppedOnItsWayIsNotCertainAndOneBeforeItsWayNotSent) {
    Outcome_Rig rig;
    rig.link.PresetSingleRegister(0, 1, 5);
    rig.clock.runFor(20 * ms);
    ASSERT_EQ(rig.port.written.size(), 1U);
    rig.link.StopScan();
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Uncertain);
    rig.link.PresetSingleRegister(0, 1, 5);
    rig.link.StopScan();
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::NotSent);
}

TEST(ModbusLinkOutcome, AWriteWithoutAnAddressOrAPortIsNotSent) {
    Outcome_Rig rig;
    rig.link.PresetSingleRegister(0, 65536, 5);
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::NotSent);
    rig.link.ClosePort();
    rig.link.PresetSingleRegister(0, 1, 5);
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::NotSent);
}

TEST(ModbusLinkOutcome, AWriteWhosePortIsLostIsNotCertain) {
    Outcome_Rig rig;
    rig.link.PresetSingleRegister(0, 1, 5);
    rig.clock.runFor(20 * ms);
    rig.port.unplug();
    EXPECT_FALSE(rig.link.WriteBusy());
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Uncertain);
}

} // namespace
} // namespace zorvane
