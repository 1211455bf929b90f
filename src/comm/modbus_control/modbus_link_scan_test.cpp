// SPDX-License-Identifier: MIT
// The scan as the upload and the polling drive it: which blocks, in which order, and what a watcher sees.
#include "comm/modbus_control/testing/link_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using testing::Link_Rig;
using testing::ms;

TEST(ModbusLinkScan, ScanModeChoosesTheBlocks) {
    Link_Rig rig;
    rig.block(1, 5, "NONE");
    rig.block(10, 15, "ALWAYS");
    rig.block(20, 25, "ALWAYS");
    rig.link.SetScanMode("ALWAYS");
    EXPECT_EQ(rig.link.ScanMode(), "ALWAYS");
    EXPECT_EQ(rig.link.ScanBlockCount(), 2);
    EXPECT_EQ(watchedScanBlock(rig.link), 2);
    rig.link.SetScanMode("NONE");
    EXPECT_EQ(rig.link.ScanBlockCount(), 3);
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
}

TEST(ModbusLinkScan, ShowsIndex0BeforeThereAreBlocks) {
    Link_Rig rig;
    EXPECT_EQ(watchedScanBlock(rig.link), 0);
    EXPECT_EQ(rig.link.ScanBlockCount(), 0);
}

TEST(ModbusLinkScan, TheFirstBlockIsShownAndFurtherOnesMoveNothing) {
    Link_Rig rig;
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    rig.block(1, 5);
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    rig.block(6, 7);
    rig.link.StartScan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(watchedScanBlock(rig.link), 2);
    rig.block(8, 9);
    EXPECT_EQ(watchedScanBlock(rig.link), 2);
}

TEST(ModbusLinkScan, UnitIdStays0) {
    Link_Rig rig;
    std::int32_t unit = 0;
    rig.link.AddScanBlock(1, 5, false, "NONE", unit);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(unit, 0);
    EXPECT_EQ(rig.port.written[0].at(0), 1);
}

TEST(ModbusLinkScan, StartAndPrepareComeInEitherOrder) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.StartScan();
    rig.link.SetScanMode("NONE");
    rig.clock.runFor(microsPerSecond);
    EXPECT_TRUE(rig.port.written.empty());
    rig.link.PrepareScan();
    EXPECT_TRUE(rig.exchanges(1));
    rig.link.StartScan();
    EXPECT_TRUE(rig.exchanges(2)) << "harmless when already running";
}

TEST(ModbusLinkScan, PauseAndEndSessionLetARequestUnderWayEndAndSendNoOther) {
    for (const bool pause : {true, false}) {
        Link_Rig rig;
        rig.block(1, 5);
        rig.scan();
        ASSERT_TRUE(rig.clock.runUntilTrue([&] { return rig.port.written.size() == 2; }, microsPerSecond));
        pause ? rig.link.PauseScan() : rig.link.EndSession();
        rig.clock.runFor(microsPerSecond);
        EXPECT_EQ(rig.port.written.size(), 2U);
        EXPECT_EQ(rig.log.exchanges.size(), 2U);
    }
}

TEST(ModbusLinkScan, AStoppedScanIsPreparedAgainOnItsOpenPort) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.StopScan();
    rig.link.PrepareScan();
    EXPECT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.port.attempts.size(), 1U);
}

TEST(ModbusLinkScan, ABlockHasAllItsTriesAgainAfterAStop) {
    Link_Rig rig;
    rig.faults = [](int, const Byte_Array&) {};
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    rig.link.StopScan();
    rig.link.StartScan();
    ASSERT_TRUE(rig.exchanges(6));
    EXPECT_THAT(rig.firstRegisters(), ElementsAre(1, 1, 1, 1, 1, 6));
}

TEST(ModbusLinkScan, AStoppedScanKeepsItsIndex) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.StopScan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(watchedScanBlock(rig.link), 0) << "between two passes";
}

TEST(ModbusLinkScan, EndSessionEndsTheScan) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(3));
    rig.link.EndSession();
    rig.clock.runFor(100 * ms);
    const std::size_t count = rig.log.exchanges.size();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.log.exchanges.size(), count);
}

TEST(ModbusLinkScan, EndSessionTakesBackARequestThatHasNotGoneOut) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.SetTimings(50, 0);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.EndSession();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.written.size(), 1U);
}

TEST(ModbusLinkScan, PauseHoldsTheScanAndNotAWrite) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.PauseScan();
    rig.clock.runFor(microsPerSecond);
    const std::size_t count = rig.log.exchanges.size();
    EXPECT_LE(count, 2U);
    rig.link.PresetSingleRegister(0, 1, 5);
    EXPECT_TRUE(rig.writeEnds());
    rig.link.ResumeScan();
    EXPECT_TRUE(rig.exchanges(count + 2));
}

TEST(ModbusLinkScan, PauseTakesBackARequestThatHasNotGoneOut) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.SetTimings(50, 0);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.PauseScan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.written.size(), 1U);
}

TEST(ModbusLinkScan, AfterStopAndCloseNothingGoesOut) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.StopScan();
    rig.link.ClosePort();
    EXPECT_FALSE(rig.link.portOpen());
    const std::size_t sent = rig.port.written.size();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.written.size(), sent);
    rig.link.PrepareScan();
    EXPECT_TRUE(rig.exchanges(2)) << "the wish to scan stands";
}

TEST(ModbusLinkScan, AStoppedScanRestsOnAnOpenPortUntilItIsPreparedOrStarted) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.StopScan();
    const std::size_t sent = rig.port.written.size();
    rig.link.ResumeScan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.written.size(), sent);
    EXPECT_TRUE(rig.link.portOpen());
    rig.link.StartScan();
    EXPECT_TRUE(rig.exchanges(2));
}

TEST(ModbusLinkScan, AStoppedWriteDoesNotDelayALookAtTheScan) {
    Port_Settings settings = Link_Rig::defaults();
    settings.line.baud = 115200;
    Link_Rig rig(settings);
    rig.turnaround = 100;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    ASSERT_TRUE(rig.exchanges(2));
    rig.link.PresetSingleRegister(0, 1, 5);
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return rig.port.written.size() == 3; }, microsPerSecond));
    rig.link.StopScan();
    rig.link.StartScan();
    EXPECT_EQ(watchedScanBlock(rig.link), 2);
    rig.clock.runFor(1 * ms);
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
}

TEST(ModbusLinkScan, ResetScanGoesOnWithARequestThatHasNotGoneOut) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.link.SetTimings(50, 0);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.clock.runFor(10 * ms);
    rig.link.ResetScan();
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_EQ(rig.log.exchanges[1].firstRegister, 1);
    EXPECT_EQ(rig.log.exchanges[2].firstRegister, 6);
}

TEST(ModbusLinkScan, AfterAResetABlockHasAllItsTriesAgain) {
    Link_Rig rig;
    rig.faults = [](int, const Byte_Array&) {};
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    rig.link.ResetScan();
    ASSERT_TRUE(rig.exchanges(6));
    EXPECT_THAT(rig.firstRegisters(), ElementsAre(1, 1, 1, 1, 1, 6));
}

TEST(ModbusLinkScan, ResetScanGoesBackToTheFirstBlock) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.block(8, 9);
    rig.scan();
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return watchedScanBlock(rig.link) == 2; }, microsPerSecond));
    rig.link.ResetScan();
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    const std::size_t before = rig.log.exchanges.size();
    ASSERT_TRUE(rig.exchanges(before + 1));
    EXPECT_EQ(rig.log.exchanges[before].firstRegister, 1);
}

TEST(ModbusLinkScan, AnAnswerUnderWayWhileTheScanIsResetFillsTheImageAndMovesNothing) {
    Link_Rig rig;
    rig.slave.registers[6] = 66;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.block(8, 9);
    rig.scan();
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return rig.port.written.size() == 2; }, microsPerSecond));
    rig.link.ResetScan();
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.link.RegisterValue(0, 6), 66);
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_EQ(rig.log.exchanges[2].firstRegister, 1);
}

} // namespace
} // namespace zorvane
