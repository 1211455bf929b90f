// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/rfc2217_port.h"
#include "comm/modbus_control/testing/byte_port_suite.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/rfc2217_toy.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace testing;

const std::string portName = "rfc2217:gate:2217";

class Rfc2217Port : public ::testing::Test {
  protected:
    Rfc2217Port() {
        port.setListener(&ear);
        connection.onWrite = [this](const Byte_Array& bytes) {
            const Byte_Array said = server.take(bytes);
            clock.in(1000, [this, said] { connection.deliver(said); });
        };
    }

    /// How the opening ended.
    Port_Opening open() {
        const Port_Opening begun = port.open(portName, settings);
        if (!begun.goesOn) return begun;
        clock.runFor(10 * microsPerSecond);
        return ear.openings.empty() ? Port_Opening{} : ear.openings.back();
    }

    Port_Settings settings;
    Hand_Clock clock;
    Scripted_Port connection;
    Rfc2217_Toy server;
    Port_Ear ear;
    Rfc2217_Port port{connection, clock};
};

TEST_F(Rfc2217Port, SetsTheLineAtTheServerAndIsOpenOnceAllOfItIsConfirmed) {
    settings.line = *parseLineSettings("19200,e,8,2");
    EXPECT_TRUE(open().opened);
    EXPECT_TRUE(port.isOpen());
    EXPECT_EQ(server.line, settings.line);
    EXPECT_EQ(server.purged, 1);
    EXPECT_TRUE(server.binary);
    EXPECT_EQ(connection.attempts, std::vector<std::string>{portName});
}

TEST_F(Rfc2217Port, IsNotOpenBeforeTheLineIsSet) {
    EXPECT_TRUE(port.open(portName, settings).goesOn);
    EXPECT_FALSE(port.isOpen());
    EXPECT_FALSE(port.write(Byte_Array{1}));
    EXPECT_THAT(ear.openings, IsEmpty());
}

TEST_F(Rfc2217Port, EveryByteGoesBothWaysUnchanged) {
    ASSERT_TRUE(open().opened);
    const Byte_Array all{0, 1, 13, 10, 254, 255, 255, 240, 250};
    EXPECT_TRUE(port.write(all));
    EXPECT_EQ(server.data, all);
    connection.deliver(telnetData(all));
    EXPECT_EQ(ear.heard, all);
}

TEST_F(Rfc2217Port, AServerThatRefusesIsNamed) {
    server.refuses = true;
    EXPECT_EQ(open().reason,
              "The server gate:2217 refuses RFC 2217. Allow it there, or set the line there and "
              "choose rtu+tcp:gate:2217 here.");
    EXPECT_FALSE(connection.isOpen());
}

TEST_F(Rfc2217Port, AServerThatDoesNotSpeakItIsNamed) {
    server.mute = true;
    EXPECT_EQ(
        open().reason,
        "The server gate:2217 doesn't speak RFC 2217: nothing answered the offer. Is RFC 2217 switched on "
        "for this port there? For a plain connection choose rtu+tcp:gate:2217 here.");
    EXPECT_FALSE(connection.isOpen());
}

TEST_F(Rfc2217Port, AServerThatPassesNotEveryByteIsNamed) {
    server.refusesBinary = true;
    EXPECT_EQ(open().reason, "The server gate:2217 doesn't let every byte pass: it refuses the telnet option "
                             "BINARY. Choose another kind of connection there.");
}

TEST_F(Rfc2217Port, AServerThatSetsSomethingElseIsNamed) {
    server.onlyBaud = 9600;
    settings.line = *parseLineSettings("19200,n,8,1");
    EXPECT_EQ(open().reason,
              "The server gate:2217 doesn't take the line's settings: asked for 19200 baud, it set "
              "9600 baud. Choose other settings, or change what the server allows.");
}

TEST_F(Rfc2217Port, TheLineIsChangedOnTheSameConnection) {
    ASSERT_TRUE(open().opened);
    EXPECT_EQ(port.changeLine({2400, 'O', 8, 1}), Line_Change::GoesOn);
    EXPECT_FALSE(port.isOpen());
    clock.runFor(microsPerSecond);
    ASSERT_EQ(ear.openings.size(), 2U);
    EXPECT_TRUE(ear.openings[1].opened);
    EXPECT_TRUE(port.isOpen());
    EXPECT_EQ(server.line, (Line_Settings{2400, 'O', 8, 1}));
    EXPECT_EQ(connection.attempts.size(), 1U);
}

TEST_F(Rfc2217Port, ASettingThatTheServerRefusesIsToldFromAServerThatIsNotThere) {
    ASSERT_TRUE(open().opened);
    server.onlyBaud = 9600;
    EXPECT_EQ(port.changeLine({2400, 'N', 8, 1}), Line_Change::GoesOn);
    clock.runFor(microsPerSecond);
    EXPECT_FALSE(ear.openings.back().opened);
    EXPECT_TRUE(ear.openings.back().lineRefused);
    EXPECT_EQ(port.changeLine({9600, 'N', 8, 1}), Line_Change::Refused); // closed by now
    server.refuses = true;
    EXPECT_FALSE(open().lineRefused);
}

TEST_F(Rfc2217Port, AServerThatDoesNotConfirmIsNamed) {
    server.confirms = false;
    EXPECT_EQ(open().reason,
              "The server gate:2217 speaks RFC 2217 but doesn't confirm the baud rate. Look at the "
              "server's settings, or choose rtu+tcp:gate:2217 here.");
}

TEST_F(Rfc2217Port, AServerThatHangsUpMeanwhileIsNamed) {
    EXPECT_TRUE(port.open(portName, settings).goesOn);
    connection.unplug();
    ASSERT_EQ(ear.openings.size(), 1U);
    EXPECT_EQ(ear.openings[0].reason,
              "The server gate:2217 closed the connection before the line was set: is it "
              "in use by somebody else?");
    EXPECT_THAT(ear.losses, IsEmpty());
}

TEST_F(Rfc2217Port, AConnectionThatCannotBeMadeKeepsItsReason) {
    connection.onOpen = [](const std::string&) { return Port_Opening{false, "Refused.", {}}; };
    EXPECT_EQ(open().reason, "Refused.");
    EXPECT_THAT(ear.openings, IsEmpty());
}

TEST_F(Rfc2217Port, AConnectionThatIsMadeLaterGetsTheLineThen) {
    connection.onOpen = [](const std::string&) { return Port_Opening{.goesOn = true}; };
    settings.line = *parseLineSettings("19200,e,8,2");
    EXPECT_TRUE(port.open(portName, settings).goesOn);
    EXPECT_THAT(connection.written, IsEmpty());
    connection.endOpening({.opened = true});
    clock.runFor(microsPerSecond);
    EXPECT_TRUE(port.isOpen());
    EXPECT_EQ(server.line, settings.line);
}

TEST_F(Rfc2217Port, AConnectionThatFailsLaterKeepsItsReasonToo) {
    connection.onOpen = [](const std::string&) { return Port_Opening{.goesOn = true}; };
    EXPECT_TRUE(port.open(portName, settings).goesOn);
    EXPECT_THAT(ear.openings, IsEmpty());
    connection.endOpening({.reason = "Refused."});
    ASSERT_EQ(ear.openings.size(), 1U);
    EXPECT_FALSE(ear.openings[0].opened);
    EXPECT_EQ(ear.openings[0].reason, "Refused.");
}

TEST_F(Rfc2217Port, RtsIsSwitchedAtTheServer) {
    settings.rts = Rts_Mode::HighOnSend;
    EXPECT_THAT(
        open().warnings,
        ElementsAre("RTS is switched over the network: on a slow one it may come too late for the answer."));
    EXPECT_EQ(server.rts, std::vector<bool>{false});
    port.setRts(true);
    port.setRts(false);
    EXPECT_EQ(server.rts, (std::vector<bool>{false, true, false}));
}

TEST_F(Rfc2217Port, WhatAServerTellsOfItsLinesIsNoData) {
    ASSERT_TRUE(open().opened);
    connection.deliver(bytesOf("01 FF FA 2C 6B 30 FF F0 02"));
    EXPECT_EQ(ear.heard, (Byte_Array{1, 2}));
}

TEST_F(Rfc2217Port, AnOptionNobodyNeedsIsRefusedOnce) {
    ASSERT_TRUE(open().opened);
    connection.written.clear();
    connection.deliver(bytesOf("FF FD 18 FF FB 01 FF FD 18 FF FE 18"));
    EXPECT_THAT(connection.written, ElementsAre(bytesOf("FF FC 18"), bytesOf("FF FE 01")));
}

TEST_F(Rfc2217Port, AnOpeningThatIsGivenUpTellsNothing) {
    EXPECT_TRUE(port.open(portName, settings).goesOn);
    port.close();
    clock.runFor(10 * microsPerSecond);
    EXPECT_THAT(ear.openings, IsEmpty());
    EXPECT_FALSE(connection.isOpen());
}

/// The suite of all ports, over a connection without a network.
class Rfc2217_Bench {
  public:
    Rfc2217_Bench() {
        connection_.onOpen = [this](const std::string& name) {
            const bool there = present_ && name == this->name();
            return Port_Opening{there, there ? "" : absentReason(), {}};
        };
        connection_.onWrite = [this](const Byte_Array& bytes) {
            const Byte_Array said = server_.take(bytes);
            if (!said.empty()) clock_.in(1000, [this, said] { connection_.deliver(said); });
        };
    }
    Byte_Port& port() { return port_; }
    [[nodiscard]] static std::string name() { return portName; }
    [[nodiscard]] static std::string absentName() { return "rfc2217:nowhere:1"; }
    [[nodiscard]] static std::string absentReason() { return "Host unknown."; }
    void farSend(const Byte_Array& bytes) { connection_.queue(telnetData(bytes)); }
    [[nodiscard]] Byte_Array farReceived(std::size_t) const { return server_.data; }
    void hangUp() { present_ = false; }
    void comeBack() { present_ = true; }
    void idle() {
        clock_.runFor(10000);
        connection_.deliverQueued();
        if (!present_) connection_.unplug();
    }
    template <class Condition> bool runUntil(Condition condition) {
        idle();
        return condition();
    }

  private:
    Hand_Clock clock_;
    Scripted_Port connection_;
    Rfc2217_Toy server_;
    Rfc2217_Port port_{connection_, clock_};
    bool present_ = true;
};

} // namespace

namespace testing {
INSTANTIATE_TYPED_TEST_SUITE_P(Rfc2217, Byte_Port_Suite, Rfc2217_Bench);
}
} // namespace zorvane
