// SPDX-License-Identifier: MIT
// What the port dialog's test says of ports on a network.
#include "comm/modbus_control/exchange/trial_verdict.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using namespace testing;

/// One test of unit 7 over a network; what comes back is a function of the request.
class TestVerdictOnNetwork : public ::testing::Test {
  protected:
    explicit TestVerdictOnNetwork(const std::string& name = "tcp:plc7:502") {
        request.settings.port = name;
        request.settings.slave = 7;
        request.settings.line = *parseLineSettings("9600,n,8,1");
        request.firstRegister = 100;
        request.wireAddress = 99;
        opening = {true, {}, {}};
    }

    Trial_Verdict run() {
        port.onOpen = [](const std::string&) { return Port_Opening{false, {}, {}, true}; };
        port.onWrite = [this](const Byte_Array& sent) {
            if (lost) return clock.in(1000, [this] { port.unplug("plc7:502 closed the connection."); });
            const Byte_Array back = answer ? answer(sent) : Byte_Array{};
            clock.in(3000, [this, back] { port.deliver(back); });
        };
        Trial_Exchange test(port, clock);
        Trial_Verdict verdict;
        test.start(request, [&](const Trial_Report& report) { verdict = trialVerdict(request, report); });
        clock.in(20000, [this] { port.endOpening(opening); });
        clock.runFor(10 * microsPerSecond);
        EXPECT_FALSE(test.running());
        EXPECT_FALSE(port.isOpen());
        return verdict;
    }
    /// Unit, function and data under the request's number.
    void answers(std::string_view body) {
        answer = [bytes = bytesOf(body)](const Byte_Array& sent) {
            Byte_Array frame{sent[0], sent[1], 0, 0, 0, static_cast<std::uint8_t>(bytes.size())};
            frame.insert(frame.end(), bytes.begin(), bytes.end());
            return frame;
        };
    }

    Trial_Request request;
    Port_Opening opening;
    std::function<Byte_Array(const Byte_Array&)> answer;
    bool lost = false;
    Hand_Clock clock;
    Scripted_Port port;
};

class TestVerdictRtuOverTcp : public TestVerdictOnNetwork {
  protected:
    TestVerdictRtuOverTcp() : TestVerdictOnNetwork("rtu+tcp:plc7:4001") {}
};

TEST_F(TestVerdictOnNetwork, AGoodAnswer) {
    answers("07 03 02 00 01");
    EXPECT_EQ(verdictText(run()), "Good: Unit 7 answered after 3 ms.");
}

TEST_F(TestVerdictOnNetwork, ALeftOverEchoSwitchChangesNothing) {
    request.settings.adapterEchoes = true;
    answers("07 03 02 00 01");
    EXPECT_EQ(verdictText(run()), "Good: Unit 7 answered after 3 ms.");
}

TEST_F(TestVerdictOnNetwork, AConnectionThatIsNotMadeGivesItsReason) {
    opening = {false, "Refused: plc7 is there.", {}};
    const Trial_Verdict verdict = run();
    EXPECT_EQ(verdict.kind, Verdict_Kind::NotOpened);
    EXPECT_EQ(verdictText(verdict), "No connection to plc7:502 (Modbus TCP).\nRefused: plc7 is there.");
}

TEST_F(TestVerdictOnNetwork, Silence) {
    EXPECT_EQ(
        verdictText(run()),
        "Silence: nothing came back within 500 ms.\n"
        "1. Slave number: does plc7:502 answer for unit 7? Many gateways are silent on a unit that they "
        "don't have.\n"
        "2. Does plc7:502 speak Modbus TCP? A server that passes serial frames on is reached by "
        "rtu+tcp:plc7:502.\n"
        "3. A gateway: is the controller behind it switched on, wired, and set to the gateway's line?\n"
        "4. A slow line behind the gateway: try a longer time-out.");
}

TEST_F(TestVerdictOnNetwork, TheGatewaysOwnExceptions) {
    answers("07 83 0B");
    EXPECT_EQ(
        verdictText(run()),
        "The gateway plc7:502 answered, but not unit 7: Gateway target failed to respond (exception 11).\n"
        "1. Is the controller behind the gateway switched on, and wired to it?\n"
        "2. Slave number: has the controller the number 7?\n"
        "3. Is the gateway's line set to the controller's baud rate, parity and stop bits?\n"
        "4. Is the gateway's own time-out long enough for the controller?");
    answers("07 83 0A");
    EXPECT_EQ(verdictText(run()),
              "The gateway plc7:502 answered, but not unit 7: Gateway path unavailable (exception 10).\n"
              "1. Slave number: has the controller the number 7?\n"
              "2. Does the gateway's own table lead the number 7 to a line?");
}

TEST_F(TestVerdictOnNetwork, TheControllersExceptions) {
    answers("07 83 02");
    EXPECT_EQ(run().headline, "Unit 7 is there, but it refused: Illegal data address (exception 2).");
}

TEST_F(TestVerdictOnNetwork, AnotherProtocol) {
    answer = [](const Byte_Array&) { return bytesOf("48 54 54 50 2F 31"); };
    EXPECT_EQ(verdictText(run()),
              "Something came back that is no whole answer: only noise, 6 bytes.\n"
              "1. Does plc7:502 speak Modbus TCP? A server that passes serial frames on is reached by "
              "rtu+tcp:plc7:502.\n"
              "2. Port: is 502 that of Modbus on this host? It usually is 502.");
}

TEST_F(TestVerdictOnNetwork, AnotherUnitOrNumber) {
    answers("08 03 02 00 01");
    EXPECT_EQ(verdictText(run()),
              "A whole answer came back, but not the one asked for: answer of another unit.\n"
              "1. Slave number: does plc7:502 answer for unit 7?\n"
              "2. A gateway that mixes up its answers: try a longer time-out.");
    answer = [](const Byte_Array&) { return bytesOf("77 77 00 00 00 05 07 03 02 00 01"); };
    EXPECT_EQ(run().headline, "A whole answer came back, but not the one asked for: answer under another "
                              "transaction number.");
}

TEST_F(TestVerdictOnNetwork, AConnectionThatIsClosedMeanwhile) {
    lost = true;
    EXPECT_EQ(
        verdictText(run()),
        "The connection to plc7:502 was closed during the test.\n"
        "1. Does another program hold the connection? Many devices take only one: close that program and "
        "test again.\n"
        "2. If it happens again: look at the network between, and at the log of the device.");
}

TEST_F(TestVerdictRtuOverTcp, AGoodAnswer) {
    answer = [](const Byte_Array&) { return withCrc(bytesOf("07 03 02 00 01")); };
    EXPECT_EQ(run().kind, Verdict_Kind::Good);
    EXPECT_EQ(port.written.back(), withCrc(bytesOf("07 03 00 63 00 01")));
}

TEST_F(TestVerdictRtuOverTcp, Silence) {
    EXPECT_EQ(
        verdictText(run()),
        "Silence: nothing came back within 500 ms.\n"
        "1. Is the controller switched on, and its cable in the port of the server?\n"
        "2. Slave number: has the controller the number 7?\n"
        "3. Baud, parity and stop bits: is the server's port set as the controller is? From here they are "
        "set only by rfc2217:plc7:4001.\n"
        "4. Does plc7:4001 speak Modbus TCP? Then it is silent on these frames: try tcp:plc7:4001.\n"
        "5. RS-485: exchange the wires A and B.\n"
        "6. A slow line or network: try a longer time-out.");
}

TEST_F(TestVerdictRtuOverTcp, ADamagedAnswer) {
    answer = [](const Byte_Array&) { return bytesOf("07 03 02 00 01 00 00"); };
    EXPECT_EQ(verdictText(run()),
              "Something came back that is no whole answer: wrong CRC, 7 bytes.\n"
              "1. Baud, parity and stop bits: is the server's port set as the controller is?\n"
              "2. Does plc7:4001 speak Modbus TCP? Then try tcp:plc7:4001.\n"
              "3. Noise: terminate both ends of the line, bias it in one place, join the grounds.\n"
              "4. Two units with the same number, or a second master on the line.");
}

TEST_F(TestVerdictOnNetwork, APortThatIsSetOverTheNetworkIsAdvisedAsASerialOne) {
    request.settings.port = "rfc2217:gate:2217";
    const Trial_Verdict verdict = run();
    EXPECT_EQ(verdict.advice.at(2),
              "Is the controller set to 9600 baud, no parity, 8 data bits, 1 stop bit? One "
              "wrong setting is silence.");
}

} // namespace
} // namespace zorvane
