// SPDX-License-Identifier: MIT
// The port dialog's test: one exchange over a scripted port, and what is said of it.
#include "comm/modbus_control/exchange/trial_verdict.h"
#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;
using testing::Hand_Clock;
using testing::Scripted_Port;
using testing::Toy_Slave;
using testing::withCrc;

Byte_Array joined(Byte_Array first, const Byte_Array& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Byte_Array damaged(Byte_Array frame) {
    frame.back() = static_cast<std::uint8_t>(frame.back() ^ 0xFFU);
    return frame;
}

/// A test of unit 7 at 9600,e,8,1 that reads register 40100 with address 99 on the wire.
struct Test_Bench {
    Test_Bench() {
        request.settings.port = "ttyUSB0";
        request.settings.slave = 7;
        request.settings.line.parity = 'E';
        request.timeOutMs = 500;
        request.firstRegister = 40100;
        request.wireAddress = 99;
        slave.registers[99] = 1234;
    }

    /// The line's side of the exchange: what it sends back to the request, 20 ms after it.
    using Answer_Script = std::function<Byte_Array(Toy_Slave& slave, const Byte_Array& request)>;

    void answer(const Answer_Script& script) {
        port.onWrite = [this, script](const Byte_Array& sent) {
            clock.in(20 * microsPerMs, [this, bytes = script(slave, sent)] { port.deliver(bytes); });
        };
    }

    Trial_Verdict run() {
        exchange.start(request, [this](const Trial_Report& told) { report = told; });
        EXPECT_TRUE(clock.runUntilTrue([this] { return report.has_value(); }, 10 * microsPerSecond));
        return report ? trialVerdict(request, *report) : Trial_Verdict{};
    }

    Trial_Request request;
    Toy_Slave slave{7};
    Hand_Clock clock;
    Scripted_Port port;
    Trial_Exchange exchange{port, clock};
    std::optional<Trial_Report> report;
};

struct Case {
    const char* name;
    Test_Bench::Answer_Script script;
    Verdict_Kind kind;
    const char* text;
    bool echoes = false;
};

const char* const silence =
    "1. Is the controller switched on, and its cable in this port?\n"
    "2. Slave number: has the controller the number 7?\n"
    "3. Is the controller set to 9600 baud, even parity, 8 data bits, 1 stop bit? One wrong setting is "
    "silence.\n"
    "4. RS-485: exchange the wires A and B.\n"
    "5. RS-485 adapter that doesn't switch to sending by itself: choose another RTS mode.\n"
    "6. A slow controller, a radio or a gateway: try a longer time-out.";

const char* const damage =
    "1. Baud: has the controller 9600?\n"
    "2. Parity and stop bits: has it 9600 baud, even parity, 8 data bits, 1 stop bit?\n"
    "3. Noise: terminate both ends of the line, bias it in one place, join the grounds.\n"
    "4. Two units with the same number, or a second master on the line.";

const std::string silenceText = std::string("Silence: nothing came back within 500 ms.\n") + silence;
const std::string onlyEchoText =
    std::string("Only the adapter's own echo came back: the port works, and no controller answered.\n") +
    silence;
const std::string badCrcText =
    std::string("Something came back that is no whole answer: wrong CRC, 7 bytes.\n") + damage;
const std::string noiseText =
    std::string("Something came back that is no whole answer: only noise, 3 bytes.\n") + damage;

std::vector<Case> cases() {
    using Kind = Verdict_Kind;
    const auto exception = [](std::uint8_t code) {
        return [code](Toy_Slave& slave, const Byte_Array& sent) { return slave.exception(sent, code); };
    };
    const auto fixed = [](Byte_Array bytes) {
        return [bytes](Toy_Slave&, const Byte_Array&) { return bytes; };
    };
    return {
        {"good", [](Toy_Slave& slave, const Byte_Array& sent) { return slave.answer(sent); }, Kind::Good,
         "Good: Unit 7 answered after 20 ms."},
        {"good after noise",
         [](Toy_Slave& slave, const Byte_Array& sent) {
             return joined(bytesOf("FF 00"), slave.answer(sent));
         },
         Kind::Good,
         "Good: Unit 7 answered after 20 ms.\n2 bytes of noise came before the answer: check termination, "
         "bias "
         "and ground."},
        {"good after one byte of noise",
         [](Toy_Slave& slave, const Byte_Array& sent) { return joined(bytesOf("FF"), slave.answer(sent)); },
         Kind::Good,
         "Good: Unit 7 answered after 20 ms.\n1 byte of noise came before the answer: check termination, "
         "bias "
         "and ground."},
        {"good after an echo",
         [](Toy_Slave& slave, const Byte_Array& sent) { return joined(sent, slave.answer(sent)); },
         Kind::Good,
         "Good: Unit 7 answered after 20 ms.\nThe adapter repeats what is sent: tick \"Adapter echoes\"."},
        {"good after an echo that was expected",
         [](Toy_Slave& slave, const Byte_Array& sent) { return joined(sent, slave.answer(sent)); },
         Kind::Good, "Good: Unit 7 answered after 20 ms.", true},
        {"exception", exception(2), Kind::Exception,
         "Unit 7 is there, but it refused: Illegal data address (exception 2).\n"
         "1. Port, line and slave number are right.\n"
         "2. Register 40100 (99 on the wire) isn't known to it: does the template fit this controller?"},
        {"busy", exception(6), Kind::Exception,
         "Unit 7 is there, but it refused: BUSY.\n"
         "Port, line and slave number are right. It is busy: test again in a moment."},
        {"gateway without a path", exception(10), Kind::Exception,
         "Unit 7 is there, but it refused: Gateway path unavailable (exception 10).\n"
         "Port and line are right as far as the gateway. Check the slave number, and the line behind the "
         "gateway."},
        {"gateway", exception(11), Kind::Exception,
         "Unit 7 is there, but it refused: Gateway target failed to respond (exception 11).\n"
         "Port and line are right as far as the gateway. Check the slave number, and the line behind the "
         "gateway."},
        {"silence", fixed({}), Kind::Silence, silenceText.c_str()},
        {"wrong CRC", [](Toy_Slave& slave, const Byte_Array& sent) { return damaged(slave.answer(sent)); },
         Kind::Damaged, badCrcText.c_str()},
        {"noise", fixed(bytesOf("FE 80 FF")), Kind::Damaged, noiseText.c_str()},
        {"cut short", fixed(bytesOf("07 03 02 04")), Kind::Damaged,
         "Something came back that is no whole answer: answer cut short, 4 bytes.\n"
         "1. The answer stops half-way: try a longer time-out.\n"
         "2. Baud: has the controller 9600?\n"
         "3. Parity and stop bits: has it 9600 baud, even parity, 8 data bits, 1 stop bit?\n"
         "4. Noise: terminate both ends of the line, bias it in one place, join the grounds.\n"
         "5. Two units with the same number, or a second master on the line."},
        {"only the echo", [](Toy_Slave&, const Byte_Array& sent) { return sent; }, Kind::Echo,
         onlyEchoText.c_str()},
        {"only the echo that was expected", [](Toy_Slave&, const Byte_Array& sent) { return sent; },
         Kind::Echo, onlyEchoText.c_str(), true},
        {"no echo though one was expected",
         [](Toy_Slave& slave, const Byte_Array& sent) { return slave.answer(sent); }, Kind::NoEcho,
         "Unit 7 is there, but the adapter doesn't echo.\nClear \"Adapter echoes\".", true},
        {"another function", fixed(withCrc(bytesOf("07 04 02 00 01"))), Kind::Stranger,
         "A whole answer came back, but not the one asked for: answer to another function.\n"
         "1. Slave number: has the controller the number 7?\n"
         "2. A second master on the line: disconnect it and test again.\n"
         "3. A gateway that mixes up its answers: try a longer time-out."},
        {"another length", fixed(withCrc(bytesOf("07 03 04 00 01 00 02"))), Kind::Stranger,
         "A whole answer came back, but not the one asked for: wrong byte count.\n"
         "1. Slave number: has the controller the number 7?\n"
         "2. A second master on the line: disconnect it and test again.\n"
         "3. A gateway that mixes up its answers: try a longer time-out."},
        {"another unit", fixed(withCrc(bytesOf("09 03 02 00 01"))), Kind::Stranger,
         "A whole answer came back, but not the one asked for: answer of another unit.\n"
         "1. Slave number: has the controller the number 7?\n"
         "2. A second master on the line: disconnect it and test again.\n"
         "3. A gateway that mixes up its answers: try a longer time-out."},
    };
}

TEST(TestVerdict, SaysInPlainWordsWhatCameOfTheExchange) {
    for (const Case& one : cases()) {
        SCOPED_TRACE(one.name);
        Test_Bench bench;
        bench.request.settings.adapterEchoes = one.echoes;
        bench.answer(one.script);
        const Trial_Verdict verdict = bench.run();
        EXPECT_EQ(verdict.kind, one.kind);
        EXPECT_EQ(verdictText(verdict), one.text);
        EXPECT_FALSE(bench.port.isOpen());
        EXPECT_EQ(bench.port.written.size(), 1U);
    }
}

TEST(TestVerdict, RoundsToTheNextMillisecond) {
    for (const auto& [took, text] : {std::pair<Micros, const char*>{20499, "20 ms."}, {20500, "21 ms."}}) {
        Test_Bench bench;
        bench.port.onWrite = [&bench, after = took](const Byte_Array& sent) {
            bench.clock.in(after, [&bench, bytes = bench.slave.answer(sent)] { bench.port.deliver(bytes); });
        };
        EXPECT_EQ(verdictText(bench.run()), std::string("Good: Unit 7 answered after ") + text);
    }
}

TEST(TestVerdict, AsksForOneRegisterByItsAddressOnTheWire) {
    Test_Bench bench;
    bench.run();
    EXPECT_EQ(bench.port.written.at(0), withCrc(bytesOf("07 03 00 63 00 01")));
    EXPECT_EQ(bench.port.attempts, std::vector<std::string>{"ttyUSB0"});
}

TEST(TestVerdict, AsksOneSilenceAfterThePortWasOpened) {
    Test_Bench bench;
    Micros sentAt = 0;
    bench.port.onWrite = [&](const Byte_Array&) { sentAt = bench.clock.now(); };
    const Micros opened = bench.clock.now();
    bench.run();
    EXPECT_EQ(sentAt, opened + frameSilence(bench.request.settings.line));
}

TEST(TestVerdict, ASilentSimulatedControllerIsStartedAnew) {
    Test_Bench bench;
    bench.request.settings.port = simulatedPortName;
    EXPECT_EQ(bench.run().advice, std::vector<std::string>{"Choose the port again: that starts it."});
}

TEST(TestVerdict, AdviceNamesTheLineInWords) {
    const auto advice = [](char parity, int stopBits) {
        Test_Bench bench;
        bench.request.settings.line = {19200, parity, 7, stopBits};
        return bench.run().advice.at(2);
    };
    const std::string more = " One wrong setting is silence.";
    EXPECT_EQ(advice('O', 2),
              "Is the controller set to 19200 baud, odd parity, 7 data bits, 2 stop bits?" + more);
    EXPECT_EQ(advice('N', 1),
              "Is the controller set to 19200 baud, no parity, 7 data bits, 1 stop bit?" + more);
}

TEST(TestVerdict, AdviceOnTheDirectionFollowsTheRtsMode) {
    const auto advice = [](Rts_Mode mode) {
        Test_Bench bench;
        bench.request.settings.rts = mode;
        return bench.run().advice.at(4);
    };
    EXPECT_EQ(advice(Rts_Mode::HighOnSend),
              "RS-485: RTS is raised while sending. Try \"None\" for an adapter that switches by itself, or "
              "another delay.");
    EXPECT_EQ(
        advice(Rts_Mode::KernelRs485),
        "RS-485: the system's driver switches the adapter. Try \"RTS high while sending\", or \"None\".");
}

TEST(TestVerdict, APortThatCantBeOpenedGivesItsReason) {
    for (const char* reason : {"Permission denied: add your user to the group dialout and log in again.",
                               "Busy: another program has the port open. Close that program and try again.",
                               "No such port: plug the adapter in, or choose another port."}) {
        Test_Bench bench;
        bench.port.onOpen = [reason](const std::string&) { return Port_Opening{false, reason, {}}; };
        const Trial_Verdict verdict = bench.run();
        EXPECT_EQ(verdict.kind, Verdict_Kind::NotOpened);
        EXPECT_EQ(verdictText(verdict), "The port ttyUSB0 can't be opened.\n" + std::string(reason));
    }
}

TEST(TestVerdict, APortThatGoesAwayIsTold) {
    Test_Bench bench;
    bench.port.onWrite = [&bench](const Byte_Array&) {
        bench.clock.in(microsPerMs, [&bench] { bench.port.unplug(); });
    };
    const Trial_Verdict verdict = bench.run();
    EXPECT_EQ(verdict.kind, Verdict_Kind::Lost);
    EXPECT_EQ(verdictText(verdict), "The port ttyUSB0 went away during the test.\n"
                                    "1. Plug the adapter in again, or choose another port.\n"
                                    "2. If it happens again: another cable or another USB socket.");
}

TEST(TestVerdict, ACancelledTestSaysNothingAndFreesThePort) {
    Test_Bench bench;
    bench.exchange.start(bench.request, [&bench](const Trial_Report& told) { bench.report = told; });
    EXPECT_TRUE(bench.exchange.running());
    bench.exchange.cancel();
    EXPECT_FALSE(bench.exchange.running());
    EXPECT_FALSE(bench.port.isOpen());
    bench.clock.runFor(10 * microsPerSecond);
    EXPECT_FALSE(bench.report);
}

TEST(TestVerdict, ATestAfterACancelledOneHasItsOwnEnd) {
    Test_Bench bench;
    bench.exchange.start(bench.request, [](const Trial_Report&) { FAIL(); });
    bench.exchange.cancel();
    bench.answer([](Toy_Slave& slave, const Byte_Array& sent) { return slave.answer(sent); });
    EXPECT_EQ(bench.run().kind, Verdict_Kind::Good);
}

TEST(TestVerdict, ATestAfterOneThatWasCancelledOnAMissingPortHasItsOwnEnd) {
    Test_Bench bench;
    bench.port.onOpen = [](const std::string&) { return Port_Opening{}; };
    bench.exchange.start(bench.request, [](const Trial_Report&) { FAIL(); });
    bench.exchange.cancel();
    bench.port.onOpen = nullptr;
    bench.answer([](Toy_Slave& slave, const Byte_Array& sent) { return slave.answer(sent); });
    EXPECT_EQ(bench.run().kind, Verdict_Kind::Good);
}

class Scripted_Simulator final : public Simulator {
  public:
    Start start(std::int32_t slave) override {
        slaves.push_back(slave);
        return answer;
    }
    void stop() override {}
    Start answer{"/tmp/line", {}};
    std::vector<std::int32_t> slaves;
};

TEST(SimulatedPort, IsStartedWhenItIsOpenedAndLeftAloneOtherwise) {
    Scripted_Port line;
    Scripted_Simulator simulator;
    Simulated_Port port(line, simulator);
    Port_Settings settings;
    settings.slave = 12;
    settings.rts = Rts_Mode::HighOnSend;
    EXPECT_TRUE(port.open("ttyS0", settings).opened);
    port.close();
    EXPECT_TRUE(simulator.slaves.empty());
    EXPECT_TRUE(port.open("Simulated controller", settings).opened);
    EXPECT_EQ(simulator.slaves, std::vector<std::int32_t>{12});
    EXPECT_EQ(line.attempts, (std::vector<std::string>{"ttyS0", "/tmp/line"}));
    EXPECT_EQ(line.settingsSeen.rts, Rts_Mode::None);
}

TEST(SimulatedPort, GivesTheReasonWhenThereIsNone) {
    Scripted_Port line;
    No_Simulator none;
    Simulated_Port port(line, none);
    const Port_Opening opening = port.open(simulatedPortName, {});
    EXPECT_FALSE(opening.opened);
    EXPECT_EQ(opening.reason,
              "This program has no simulated controller: start zorvane-sim and name its line as the port.");
    EXPECT_FALSE(line.isOpen());
}

TEST(TestVerdict, ATestThatIsCancelledOrGoesAwayLowersRtsAndFreesThePort) {
    for (const bool goesAway : {false, true}) {
        Test_Bench bench;
        bench.request.settings.rts = Rts_Mode::HighOnSend;
        auto exchange = std::make_unique<Trial_Exchange>(bench.port, bench.clock);
        exchange->start(bench.request, {});
        bench.clock.runFor(5 * microsPerMs);
        EXPECT_TRUE(bench.port.rts);
        if (goesAway)
            exchange.reset();
        else
            exchange->cancel();
        EXPECT_FALSE(bench.port.rts);
        EXPECT_FALSE(bench.port.isOpen());
    }
}

TEST(TestVerdict, EveryTestHasItsOwnReport) {
    Test_Bench bench;
    EXPECT_EQ(bench.run().kind, Verdict_Kind::Silence);
    bench.report.reset();
    bench.answer([](Toy_Slave& slave, const Byte_Array& sent) { return slave.answer(sent); });
    EXPECT_EQ(bench.run().kind, Verdict_Kind::Good);
}

} // namespace
} // namespace zorvane
