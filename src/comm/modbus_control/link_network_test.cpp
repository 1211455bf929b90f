// SPDX-License-Identifier: MIT
// The link on a port of a network: an opening takes its time, and requests have numbers.
#include "comm/modbus_control/testing/link_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Link_Rig;
using testing::ms;
const std::string refused = "Refused: plc7 is there, but takes no connection at its port 502.";

Port_Settings overTcp() {
    Port_Settings settings = Link_Rig::defaults();
    settings.port = "tcp:plc7:502";
    return settings;
}

/// Openings end when the test says so; the slave answers in frames of Modbus TCP.
struct Network_Rig : Link_Rig {
    Network_Rig() : Link_Rig(overTcp()) {
        port.onOpen = [](const std::string&) { return Port_Opening{false, {}, {}, true}; };
        port.onWrite = [this](const Byte_Array& request) {
            if (silent) return;
            const Byte_Array asked = testing::withCrc({request.begin() + 6, request.end()});
            Byte_Array frame =
                asked.at(3) == refusedRegister ? slave.exception(asked, 2) : slave.answer(asked);
            frame.resize(frame.size() - 2);
            Byte_Array answer{request[0], request[1], 0, 0, 0, static_cast<std::uint8_t>(frame.size())};
            answer.insert(answer.end(), frame.begin(), frame.end());
            send(answer, delay);
        };
    }
    void connect() { port.endOpening({true, {}, {}}); }
    void refuse() { port.endOpening({false, refused, {}}); }

    bool silent = false;
    Micros delay = 2 * ms;                ///< from a request to its answer
    std::optional<int> refusedRegister{}; ///< requests that begin there, below 256, are refused
};

TEST(LinkNetwork, AScanBeginsWhenTheConnectionStands) {
    Network_Rig rig;
    rig.slave.registers[3] = 33;
    rig.block(1, 5);
    rig.scan();
    rig.clock.runFor(3 * microsPerSecond);
    EXPECT_THAT(rig.port.written, IsEmpty());
    EXPECT_FALSE(rig.link.CommLost()) << "nothing is known yet";
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    rig.connect();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.link.RegisterValue(0, 3), 33);
    EXPECT_THAT(rig.log.notes, ElementsAre("The port is open."));
}

/// The first pass of a scan whose watcher looks every 10 ms, as an upload does, while the connection is made
/// and after it.
struct Watched_Pass {
    std::vector<std::int32_t> indexes;
    std::vector<std::int32_t> refusedBlocks; ///< the index that was known when the refusal was seen
};

Watched_Pass passAfterConnecting(Network_Rig& rig) {
    Watched_Pass pass;
    rig.link.SetScanMode("NONE");
    rig.link.ResetScan();
    rig.link.PrepareScan();
    const std::int32_t first = watchedScanBlock(rig.link);
    std::int32_t known = first;
    std::uint8_t count = rig.link.TransactionCount();
    rig.link.StartScan();
    rig.clock.in(21 * ms, [&rig] { rig.connect(); }); // long before the third look
    for (int tick = 1; tick < 1000; ++tick) {
        rig.clock.runFor(10 * ms);
        if (rig.link.TransactionCount() != count && watchedFailure(rig.link))
            pass.refusedBlocks.push_back(known);
        count = rig.link.TransactionCount();
        const std::int32_t index = watchedScanBlock(rig.link);
        if (index == known) continue;
        known = index;
        pass.indexes.push_back(index);
        if (index == first) return pass;
    }
    ADD_FAILURE() << "the pass doesn't end";
    return pass;
}

TEST(LinkNetwork, AWatcherWhoWaitedForTheConnectionMissesNoBlockHoweverFastTheAnswers) {
    for (const Micros delay : {100, 1000, 2000, 9000}) {
        Network_Rig rig;
        rig.delay = delay;
        rig.block(1, 5);
        rig.block(6, 7);
        rig.block(8, 300);
        EXPECT_THAT(passAfterConnecting(rig).indexes, ElementsAre(2, 3, 1)) << delay;
        EXPECT_THAT(rig.firstRegisters(), ElementsAre(1, 6, 8, 133, 258)) << "one pass; " << delay;
    }
}

TEST(LinkNetwork, APassOverOneBlockAfterTheConnectionShowsIndex0BeforeItEnds) {
    Network_Rig rig;
    rig.delay = 100;
    rig.block(1, 5);
    EXPECT_THAT(passAfterConnecting(rig).indexes, ElementsAre(0, 1));
    EXPECT_THAT(rig.firstRegisters(), ElementsAre(1));
}

TEST(LinkNetwork, ARefusalRightAfterTheConnectionIsToldUnderItsOwnBlock) {
    for (const Micros delay : {100, 1000, 2000, 9000}) {
        Network_Rig rig;
        rig.delay = delay;
        rig.refusedRegister = 6;
        rig.block(1, 5);
        rig.block(6, 7);
        rig.block(8, 9);
        EXPECT_THAT(passAfterConnecting(rig).refusedBlocks, ElementsAre(2)) << delay;
        EXPECT_THAT(rig.firstRegisters(), ElementsAre(1, 6, 8)) << "one pass; " << delay;
    }
}

TEST(LinkNetwork, NobodyLookingTheScanGoesAtFullSpeedAfterTheConnection) {
    Network_Rig rig;
    rig.delay = 100;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    rig.clock.runFor(10 * ms);
    rig.connect();
    rig.clock.runFor(100 * ms);
    EXPECT_GT(rig.log.exchanges.size(), 4U);
}

TEST(LinkNetwork, AConnectionThatIsRefusedIsToldOnceAndTriedAgain) {
    Network_Rig rig;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    const std::int32_t first = watchedScanBlock(rig.link);
    rig.link.StartScan();
    rig.clock.runFor(100 * ms);
    rig.refuse();
    ASSERT_EQ(rig.asker.messages.size(), 1U);
    EXPECT_EQ(rig.asker.messages[0].text, "No connection to plc7:502 (Modbus TCP).\n\n" + refused);
    EXPECT_EQ(rig.asker.messages[0].style, 16);
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_NE(watchedScanBlock(rig.link), first) << "the scan goes on as over a silent controller";
    rig.clock.runFor(500 * ms);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    rig.refuse();
    rig.clock.runFor(500 * ms);
    EXPECT_EQ(rig.port.attempts.size(), 3U);
    EXPECT_EQ(rig.asker.messages.size(), 1U) << "once per attempt of the user";
    rig.connect();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_FALSE(rig.link.CommLost());
}

TEST(LinkNetwork, SaysThatThePortIsBeingOpenedUntilThatHasEnded) {
    Network_Rig rig;
    EXPECT_FALSE(rig.link.PortOpening());
    rig.link.PrepareScan();
    EXPECT_TRUE(rig.link.PortOpening());
    rig.refuse();
    EXPECT_FALSE(rig.link.PortOpening());
    rig.clock.runFor(500 * ms);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    EXPECT_FALSE(rig.link.PortOpening()) << "nobody waits for it while it is tried again";
    rig.link.PrepareScan();
    EXPECT_TRUE(rig.link.PortOpening());
    rig.connect();
    EXPECT_FALSE(rig.link.PortOpening());
    rig.link.ClosePort();
    rig.link.PrepareScan();
    rig.link.ClosePort();
    EXPECT_FALSE(rig.link.PortOpening());
}

TEST(LinkNetwork, AWriteWaitsForTheConnection) {
    Network_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 5, 55);
    rig.clock.runFor(100 * ms);
    EXPECT_TRUE(rig.link.WriteBusy());
    rig.connect();
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_FALSE(rig.link.WriteFailed());
    EXPECT_EQ(rig.slave.registers[5], 55);
    EXPECT_TRUE(rig.link.ControllerSeen()) << "a network doesn't echo";
}

TEST(LinkNetwork, AWriteFailsUnsentWithTheConnection) {
    Network_Rig rig;
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 5, 55);
    rig.refuse();
    EXPECT_FALSE(rig.link.WriteBusy());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::NotSent);
}

TEST(LinkNetwork, AClosedPortGivesTheOpeningUp) {
    Network_Rig rig;
    rig.block(1, 5);
    rig.scan();
    rig.link.StopScan();
    rig.link.ClosePort();
    rig.clock.runFor(5 * microsPerSecond);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    EXPECT_THAT(rig.asker.messages, IsEmpty());
    rig.scan();
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    rig.connect();
    EXPECT_TRUE(rig.exchanges(1));
}

TEST(LinkNetwork, AnOpeningIsNotBegunTwice) {
    Network_Rig rig;
    rig.link.PrepareScan();
    rig.link.PrepareScan();
    rig.link.OpenPort();
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    rig.refuse();
    rig.clock.runFor(500 * ms);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    rig.link.PrepareScan(); // while it is tried again
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    rig.refuse();
    EXPECT_EQ(rig.asker.messages.size(), 2U) << "an attempt of the user is answered";
}

TEST(LinkNetwork, AConnectionThatBreaksIsMadeAgain) {
    Network_Rig rig;
    rig.block(1, 5);
    rig.scan();
    rig.connect();
    ASSERT_TRUE(rig.exchanges(3));
    rig.clock.forgetEvents();
    rig.port.unplug("plc7:502 closed the connection.");
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_THAT(rig.log.notes, Contains("The port is lost. plc7:502 closed the connection."));
    rig.clock.runFor(500 * ms);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    EXPECT_TRUE(rig.link.CommLost()) << "until an answer comes";
    rig.slave.registers[1] = 6;
    rig.connect();
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return rig.link.RegisterValue(0, 1) == 6; }, microsPerSecond));
    EXPECT_FALSE(rig.link.CommLost());
    EXPECT_THAT(rig.asker.messages, IsEmpty());
}

TEST(LinkNetwork, AWriteWhileTheConnectionIsMadeAgainFailsAtOnce) {
    Network_Rig rig;
    rig.link.PrepareScan();
    rig.connect();
    rig.port.unplug();
    rig.clock.runFor(500 * ms);
    rig.link.PresetSingleRegister(0, 5, 55);
    EXPECT_FALSE(rig.link.WriteBusy());
    EXPECT_TRUE(rig.link.WriteFailed());
}

TEST(LinkNetwork, ASilentControllerIsToldAsOnALine) {
    Network_Rig rig;
    rig.silent = true;
    rig.block(1, 5);
    rig.scan();
    rig.connect();
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_THAT(rig.results(), ElementsAre("no answer", "no answer", "no answer"));
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_TRUE(rig.link.portOpen());
    rig.silent = false;
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.link.CommLost(); }, microsPerSecond));
}

TEST(LinkNetwork, AGatewaysExceptionsStandInWords) {
    Network_Rig rig;
    rig.block(1, 5);
    rig.port.onWrite = [&](const Byte_Array& request) {
        rig.send({request[0], request[1], 0, 0, 0, 3, 1, 0x83, 11}, ms);
    };
    rig.scan();
    rig.connect();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.link.LastResponse(), "Gateway target failed to respond (exception 11)");
    EXPECT_EQ(rig.log.exchanges[0].result, "Gateway target failed to respond (exception 11)");
}

TEST(LinkNetwork, PortParametersKeepTheLineAndNameHostAndPort) {
    const Network_Rig rig;
    EXPECT_THAT(rig.link.PortParameters(), ElementsAre("1", "9600,N,8,1", "plc7:502", "2", "100", "0"));
}

TEST(LinkNetwork, OtherSettingsEndTheOpeningAndBeginAnother) {
    Network_Rig rig;
    rig.link.PrepareScan();
    Port_Settings other = overTcp();
    other.port = "tcp:plc8:502";
    rig.link.setPortSettings(other);
    EXPECT_THAT(rig.port.attempts, ElementsAre("tcp:plc7:502", "tcp:plc8:502"));
    rig.refuse();
    ASSERT_EQ(rig.asker.messages.size(), 1U);
    EXPECT_EQ(rig.asker.messages[0].text, "No connection to plc8:502 (Modbus TCP).\n\n" + refused);
}

} // namespace
} // namespace zorvane
