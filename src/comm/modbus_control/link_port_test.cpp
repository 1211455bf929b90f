// SPDX-License-Identifier: MIT
// The port under the link: it can't be opened, it is unplugged, it comes back.
#include "comm/modbus_control/testing/link_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using testing::Link_Rig;
using testing::ms;

Port_Entry usb(const std::string& name, const std::string& serial) {
    return {name, "/dev/" + name, "USB Serial", serial, std::uint16_t{0x0403}, std::uint16_t{0x6001}};
}

/// Only these ports can be opened.
void onlyPorts(Link_Rig& rig, const std::vector<std::string>& names) {
    rig.port.onOpen = [names](const std::string& name) {
        const bool there = std::find(names.begin(), names.end(), name) != names.end();
        return Port_Opening{
            there, there ? "" : "No such port: plug the adapter in, or choose another port.", {}};
    };
}

TEST(LinkPort, APortThatCannotBeOpenedIsTold) {
    Link_Rig rig;
    rig.port.onOpen = [](const std::string&) {
        return Port_Opening{
            false, "Permission denied: add your user to the group dialout and log in again.", {}};
    };
    rig.block(1, 5);
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    ASSERT_EQ(rig.asker.messages.size(), 1U);
    EXPECT_EQ(rig.asker.messages[0].text,
              "The serial port ttyUSB0 can't be opened.\n\n"
              "Permission denied: add your user to the group dialout and log in again.");
    EXPECT_EQ(rig.asker.messages[0].style, 16);
    EXPECT_EQ(rig.asker.messages[0].title, "Zorvane");
    EXPECT_THAT(
        rig.log.notes,
        Contains("The port can't be opened. Permission denied: add your user to the group dialout and "
                 "log in again."));
    EXPECT_TRUE(rig.link.CommLost());
    rig.clock.runFor(10 * microsPerSecond);
    EXPECT_EQ(rig.asker.messages.size(), 1U) << "once per attempt of the user";
}

TEST(LinkPort, WithoutAPortTheMessageSaysWhereToChooseOne) {
    Port_Settings settings = Link_Rig::defaults();
    settings.port.clear();
    Link_Rig rig(settings);
    rig.link.PrepareScan();
    ASSERT_EQ(rig.asker.messages.size(), 1U);
    EXPECT_EQ(rig.asker.messages[0].text,
              "The serial port can't be opened.\n\n"
              "No port is chosen: choose one under Communication, Port Settings.");
    rig.clock.runFor(2 * microsPerSecond);
    EXPECT_TRUE(rig.port.attempts.empty());
}

TEST(LinkPort, UnusableSettingsAreToldBeforeThePortIsTouched) {
    Port_Settings settings = Link_Rig::defaults();
    settings.line.baud = 7;
    Link_Rig rig(settings);
    rig.link.PrepareScan();
    ASSERT_EQ(rig.asker.messages.size(), 1U);
    EXPECT_EQ(rig.asker.messages[0].text, "The serial port ttyUSB0 can't be opened.\n\n"
                                          "The baud rate is 7, it must be from 300 to 921600. "
                                          "Change it under Communication, Port Settings.");
    rig.clock.runFor(2 * microsPerSecond);
    EXPECT_TRUE(rig.port.attempts.empty());
}

TEST(LinkPort, AScanOnAPortThatIsNotThereEndsAsOnASilentController) {
    Link_Rig rig;
    onlyPorts(rig, {});
    rig.block(1, 5);
    rig.block(6, 7);
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    const std::int32_t first = watchedScanBlock(rig.link);
    rig.link.StartScan();
    rig.clock.runFor(30 * ms);
    EXPECT_NE(watchedScanBlock(rig.link), first);
    EXPECT_TRUE(rig.link.CommLost());
}

TEST(LinkPort, APreparedScanOnAPortThatIsNotThereShowsItsFirstIndexUntilItIsStarted) {
    Link_Rig rig;
    onlyPorts(rig, {});
    rig.block(1, 5);
    rig.block(6, 7);
    rig.link.StartScan();
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    rig.link.StartScan();
    EXPECT_EQ(watchedScanBlock(rig.link), 2);
}

TEST(LinkPort, APortThatCouldNotBeOpenedIsTriedAgainEveryHalfSecond) {
    Link_Rig rig;
    onlyPorts(rig, {});
    rig.block(1, 5);
    rig.scan();
    rig.clock.runFor(500 * ms - 1);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    rig.clock.runFor(1);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    onlyPorts(rig, {"ttyUSB0"});
    rig.clock.runFor(500 * ms);
    EXPECT_EQ(rig.port.attempts.size(), 3U);
    EXPECT_TRUE(rig.exchanges(1));
    EXPECT_FALSE(rig.link.CommLost());
}

TEST(LinkPort, TheFirstRequestWaitsForTheSilenceOfTheOpenedLine) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    const Micros opened = rig.clock.now();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.log.exchanges[0].at, opened + frameSilence(rig.link.portSettings().line));
}

TEST(LinkPort, AfterTheUserOpensItAgainTheScanStartsAnew) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.ClosePort();
    rig.link.PrepareScan();
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_THAT(rig.firstRegisters(), ElementsAre(1, 1));
}

TEST(LinkPort, APortThatTheUserOpensIsNotOpenedAgain) {
    Link_Rig rig;
    onlyPorts(rig, {});
    rig.link.PrepareScan();
    onlyPorts(rig, {"ttyUSB0"});
    rig.clock.runFor(400 * ms);
    rig.link.PrepareScan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
}

TEST(LinkPort, ANewAttemptClearsTheLoss) {
    Link_Rig rig;
    onlyPorts(rig, {});
    rig.link.PrepareScan();
    rig.link.StopScan();
    rig.link.ClosePort();
    onlyPorts(rig, {"ttyUSB0"});
    rig.link.PrepareScan();
    EXPECT_FALSE(rig.link.CommLost());
    EXPECT_EQ(rig.asker.messages.size(), 1U);
}

TEST(LinkPort, AnUnplugWhileNothingIsAskedIsALoss) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_FALSE(rig.link.CommLost());
    rig.port.unplug();
    EXPECT_TRUE(rig.link.CommLost());
}

TEST(LinkPort, AnOpenedPortIsNoted) {
    Link_Rig rig;
    rig.link.PrepareScan();
    EXPECT_THAT(rig.log.notes, ElementsAre("The port is open."));
}

TEST(LinkPort, ALentPortIsNotLookedForUntilItIsTakenBack) {
    Link_Rig rig;
    onlyPorts(rig, {"ttyUSB0"});
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    onlyPorts(rig, {});
    rig.port.unplug();
    rig.link.lendPort();
    onlyPorts(rig, {"ttyUSB0"});
    rig.clock.runFor(2 * microsPerSecond);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    rig.link.takePortBack();
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    EXPECT_TRUE(rig.link.portOpen());
}

TEST(LinkPort, APortThatWasNotLentIsNotTakenBack) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.link.lendPort();
    rig.link.takePortBack();
    ASSERT_TRUE(rig.exchanges(2));
    rig.link.StopScan();
    const std::size_t sent = rig.port.written.size();
    rig.link.takePortBack();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.written.size(), sent);
}

TEST(LinkPort, AnAdapterThatComesBackIsAskedOnThoughNobodyLooks) {
    Link_Rig rig;
    onlyPorts(rig, {"ttyUSB0"});
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.port.unplug();
    ASSERT_TRUE(rig.exchanges(4));
    EXPECT_EQ(rig.log.exchanges.back().result, "good");
    EXPECT_THAT(rig.log.notes, ElementsAre("The port is open.", "The port is lost. Input/output error",
                                           "The port is open."));
}

TEST(LinkPort, WarningsOfThePortAreNotedAndStopNothing) {
    Link_Rig rig;
    rig.port.onOpen = [](const std::string&) { return Port_Opening{true, "", {"The port has no RTS line"}}; };
    rig.link.PrepareScan();
    EXPECT_THAT(rig.log.notes, Contains("The port has no RTS line"));
    EXPECT_TRUE(rig.asker.messages.empty());
}

enum class Moment { BeforeTheRequest, DuringTheRequest, BetweenRequests };

class LinkUnplug : public ::testing::TestWithParam<Moment> {
  protected:
    void unplugAtTheMoment(Link_Rig& rig) {
        if (GetParam() == Moment::BetweenRequests) {
            rig.link.SetTimings(200, 0);
            ASSERT_TRUE(rig.exchanges(1));
            rig.clock.runFor(10 * ms);
        } else if (GetParam() == Moment::DuringTheRequest) {
            ASSERT_TRUE(rig.exchanges(1));
            const std::size_t sent = rig.port.written.size();
            ASSERT_TRUE(
                rig.clock.runUntilTrue([&] { return rig.port.written.size() > sent; }, microsPerSecond));
        }
        rig.clock.forgetEvents();
        rig.port.unplug("Input/output error");
    }
};

TEST_P(LinkUnplug, IsALossAndTheAdapterComesBackUnderTheSameName) {
    Link_Rig rig;
    rig.finder.list = {usb("ttyUSB0", "A1")};
    rig.slave.registers[1] = 5;
    rig.block(1, 5);
    rig.block(6, 9);
    rig.scan();
    unplugAtTheMoment(rig);
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_THAT(rig.log.notes, Contains("The port is lost. Input/output error"));
    rig.finder.list.clear();
    rig.clock.runFor(3 * microsPerSecond);
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_EQ(rig.port.attempts.size(), 1U) << "a port that isn't listed isn't tried";
    rig.slave.registers[1] = 6;
    rig.finder.list = {usb("ttyUSB0", "A1")};
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.link.CommLost(); }, 2 * microsPerSecond));
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return rig.link.RegisterValue(0, 1) == 6; }, microsPerSecond));
    EXPECT_THAT(rig.port.attempts, ElementsAre("ttyUSB0", "/dev/ttyUSB0"));
    EXPECT_TRUE(rig.asker.messages.empty());
}

TEST_P(LinkUnplug, TheAdapterIsFoundUnderAnotherName) {
    Link_Rig rig;
    rig.finder.list = {usb("ttyUSB0", "A1")};
    rig.block(1, 5);
    rig.scan();
    unplugAtTheMoment(rig);
    rig.finder.list = {usb("ttyUSB0", "OTHER"), usb("ttyUSB3", "A1")};
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.link.CommLost(); }, 2 * microsPerSecond));
    EXPECT_THAT(rig.port.attempts, ElementsAre("ttyUSB0", "/dev/ttyUSB3"));
    rig.link.StopScan();
    rig.link.ClosePort();
    rig.link.PrepareScan();
    EXPECT_EQ(rig.port.attempts.back(), "/dev/ttyUSB3") << "the chosen adapter, not its old name";
}

TEST(LinkPort, TheUserOpensTheChosenAdapterThoughAnotherHasItsName) {
    Link_Rig rig;
    rig.finder.list = {usb("ttyUSB0", "A1")};
    rig.link.PrepareScan();
    rig.link.ClosePort();
    rig.finder.list = {usb("ttyUSB0", "OTHER"), usb("ttyUSB3", "A1")};
    rig.link.PrepareScan();
    EXPECT_EQ(rig.port.attempts.back(), "/dev/ttyUSB3");
    rig.link.ClosePort();
    rig.finder.list = {};
    rig.link.PrepareScan();
    EXPECT_EQ(rig.port.attempts.back(), "ttyUSB0") << "an adapter that is gone goes by its name";
}

TEST(LinkPort, AnAdapterThatCameLaterIsFoundUnderAnotherNameToo) {
    Link_Rig rig;
    onlyPorts(rig, {});
    rig.link.PrepareScan();
    rig.finder.list = {usb("ttyUSB0", "A1")};
    onlyPorts(rig, {"ttyUSB0", "/dev/ttyUSB3"});
    rig.clock.runFor(microsPerSecond);
    EXPECT_TRUE(rig.link.portOpen());
    rig.port.unplug();
    rig.finder.list = {usb("ttyUSB3", "A1")};
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.attempts.back(), "/dev/ttyUSB3");
    EXPECT_TRUE(rig.link.portOpen());
}

TEST(LinkPort, OfTwoAdaptersAlikeTheOneIsMeantThatHasTheLastName) {
    Link_Rig rig;
    rig.finder.list = {usb("ttyUSB0", "")};
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    for (const auto& list : {std::vector{usb("ttyUSB1", "")}, {usb("ttyUSB0", ""), usb("ttyUSB1", "")}}) {
        rig.port.unplug();
        rig.finder.list = list;
        ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.link.CommLost(); }, 2 * microsPerSecond));
    }
    EXPECT_THAT(rig.port.attempts, ElementsAre("ttyUSB0", "/dev/ttyUSB1", "/dev/ttyUSB1"));
}

INSTANTIATE_TEST_SUITE_P(Moments, LinkUnplug,
                         ::testing::Values(Moment::BeforeTheRequest, Moment::DuringTheRequest,
                                           Moment::BetweenRequests),
                         [](const auto& chosen) {
                             switch (chosen.param) {
                             case Moment::BeforeTheRequest:
                                 return "Before";
                             case Moment::DuringTheRequest:
                                 return "During";
                             case Moment::BetweenRequests:
                                 return "Between";
                             }
                             return "";
                         });

TEST(LinkPort, APathThatIsNoAdapterIsOpenedAgainUnderTheSamePathOnly) {
    Port_Settings settings = Link_Rig::defaults();
    settings.port = "/tmp/line";
    Link_Rig rig(settings);
    rig.finder.list = {usb("ttyUSB0", "A1")};
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    onlyPorts(rig, {});
    rig.port.unplug();
    rig.clock.runFor(2 * microsPerSecond);
    EXPECT_TRUE(rig.link.CommLost());
    onlyPorts(rig, {"/tmp/line"});
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.link.CommLost(); }, 2 * microsPerSecond));
    EXPECT_THAT(rig.port.attempts, ::testing::Each("/tmp/line"));
}

TEST(LinkPort, ALostPortIsLookedForAfterHalfASecond) {
    Link_Rig rig;
    rig.link.PrepareScan();
    onlyPorts(rig, {});
    rig.port.unplug();
    rig.clock.runFor(500 * ms - 1);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    rig.clock.runFor(1);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
}

TEST(LinkPort, ALostPortIsNotLookedForOnceWhoeverIsToldHasClosedIt) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.onExchange([&](const std::string&, const std::string&) { rig.link.ClosePort(); });
    rig.scan();
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.port.written.empty(); }, microsPerSecond));
    rig.port.unplug();
    rig.clock.runFor(10 * microsPerSecond);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
}

TEST(LinkPort, AWriteUnderWayWhenThePortIsLostFails) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 1, 5);
    rig.link.PresetSingleRegister(0, 2, 6);
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.port.written.empty(); }, microsPerSecond));
    rig.port.unplug();
    EXPECT_FALSE(rig.link.WriteBusy());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_EQ(rig.link.RegisterValue(0, 1), 0);
    EXPECT_EQ(rig.link.TransactionCount(), 1);
    EXPECT_EQ(rig.link.ExchangeLine2(), "Rx: port lost");
}

TEST(LinkPort, AnUnplugInAWatchedPassMovesTheIndex) {
    Link_Rig rig;
    onlyPorts(rig, {"ttyUSB0"});
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    const std::int32_t first = watchedScanBlock(rig.link);
    rig.clock.runFor(8 * ms);
    onlyPorts(rig, {});
    rig.port.unplug();
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return watchedScanBlock(rig.link) != first; }, microsPerSecond));
    EXPECT_TRUE(rig.link.CommLost());
}

TEST(LinkPort, AClosedPortIsNotLookedFor) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.port.unplug();
    rig.link.StopScan();
    rig.link.ClosePort();
    rig.clock.runFor(5 * microsPerSecond);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
}

/// As the monitor proposes one in the midst of polling.
TEST(LinkPort, AnotherTimeOutCountsFromTheNextRequestAndLeavesThePortOpen) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.PrepareScan();
    rig.link.StartScan();
    rig.clock.runFor(microsPerSecond);
    const std::size_t openings = rig.port.attempts.size();
    rig.link.setTimeOutMs(350);
    EXPECT_EQ(rig.link.portSettings().timeOutMs, 350);
    EXPECT_TRUE(rig.port.isOpen());
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.attempts.size(), openings);
    EXPECT_EQ(rig.link.PortParameters().at(4), "350");
}

} // namespace
} // namespace zorvane
