// SPDX-License-Identifier: MIT
// Each thing that is wrong with a line, and the sentence that it brings.
#include "survey/find/doctor_visit.h"
#include "survey/find/testing/simulated_line.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace zorvane::survey {
namespace {

using survey::testing::Simulated_Line;
using zorvane::testing::Hand_Clock;

constexpr Micros ms = microsPerMs;

/// A line of 9600 8N1 with unit 3, and settings that fit it.
struct Visit_Rig {
    explicit Visit_Rig(Line_Settings ofController = {9600, 'N', 8, 1}) : line(clock, ofController) {
        line.controllers = {{.unit = 3}};
        settings.port = "ttyUSB0";
        settings.slave = 3;
        settings.timeOutMs = 200;
    }

    Diagnosis visit() { return visit(1); }
    /// The function stands after the head that a network's frames have.
    Diagnosis visitNetwork() { return visit(mbapHead + 1); }
    Diagnosis visit(std::size_t function) {
        Doctor_Visit doctor(line, clock, settings, 0);
        std::vector<Diagnosis> told;
        doctor.start([&told](const Diagnosis& diagnosis) { told.push_back(diagnosis); });
        clock.runUntilTrue([&told] { return !told.empty(); }, 600 * microsPerSecond);
        EXPECT_EQ(told.size(), 1U);
        EXPECT_FALSE(line.isOpen());
        for (const Byte_Array& frame : line.written)
            EXPECT_EQ(frame[function], 3); // a read
        return told.empty() ? Diagnosis{} : told[0];
    }

    Hand_Clock clock;
    Simulated_Line line;
    Port_Settings settings;
};

/// Something that is wrong with a line, and what a visit says of it.
struct Ill_Line {
    const char* name;
    Ailment ailment;
    const char* sentence;
    Line_Settings ofController = {9600, 'N', 8, 1};
    void (*spoil)(Visit_Rig& rig) = [](Visit_Rig&) {};
    const char* triedFirst = "9600,n,8,1, unit 3, 200 ms: silence"; ///< to its end; "": nothing was
    std::optional<std::size_t> lines = std::nullopt;                ///< of the report
    std::optional<std::size_t> requests = std::nullopt;
};

void PrintTo(const Ill_Line& ill, std::ostream* out) { *out << ill.name; }

Byte_Array requestOfAnother() { return zorvane::testing::withCrc({7, 3, 0, 0, 0, 10}); }

const char* const otherMaster = "Another master is on the line: it asks unit 7, 10 registers from address 0 "
                                "on (function 3). Let only one "
                                "master use it.";

const Ill_Line illLines[] = {
    {"EvenParity", Ailment::Parity, "Unit 3 has even parity: set it here too.", {9600, 'E', 8, 1}},
    {"OddParity", Ailment::Parity, "Unit 3 has odd parity: set it here too.", {9600, 'O', 8, 1}},
    {.name = "NoParity",
     .ailment = Ailment::Parity,
     .sentence = "Unit 3 has no parity: set it here too.",
     .spoil = [](Visit_Rig& rig) { rig.settings.line.parity = 'E'; },
     .triedFirst = "9600,e,8,1, unit 3, 200 ms: silence"},
    {"OtherStopBits", Ailment::StopBits, "Unit 3 has 2 stop bits: set them here too.", {9600, 'N', 8, 2}},
    {"AnotherSpeed", Ailment::Speed, "Unit 3 has 38400 baud: set it here too.", {38400, 'N', 8, 1}},
    {.name = "AnotherSpeedAndParity", // as the standard has them
     .ailment = Ailment::Settings,
     .sentence = "Unit 3 has 19200 baud and even parity: set both here too.",
     .ofController = {19200, 'E', 8, 1}},
    {.name = "AnotherNumberNearBy",
     .ailment = Ailment::Unit,
     .sentence =
         "Unit 3 doesn't answer, but unit 5 does: if that is the controller, set its number as the slave "
         "number; else check the supply and the wires of unit 3.",
     .spoil = [](Visit_Rig& rig) { rig.line.controllers[0].unit = 5; }},
    {.name = "Rubbish",
     .ailment = Ailment::Rubbish,
     .sentence =
         "Something answers, but never whole: two controllers have the number 3, or the line is disturbed; "
         "leave one controller on it and test again.",
     .spoil = [](Visit_Rig& rig) { rig.line.controllers[0].damagedFirst = 1000; },
     .triedFirst = "9600,n,8,1, unit 3, 200 ms: no whole answer"},
    {.name = "AGateway",
     .ailment = Ailment::Gateway,
     .sentence =
         "A gateway answers, but it can't reach unit 3: check the slave number, and the line behind the "
         "gateway.",
     .spoil =
         [](Visit_Rig& rig) {
             rig.line.controllers.clear();
             rig.line.gateway = 11;
         },
     .triedFirst = "9600,n,8,1, unit 3, 200 ms: a gateway's exception",
     .requests = 1},
    {.name = "AnEchoThatTheSettingsDontKnow",
     .ailment = Ailment::EchoUnset,
     .sentence = "Unit 3 answers, and the adapter repeats what is sent: tick \"Adapter echoes\".",
     .spoil = [](Visit_Rig& rig) { rig.line.echoes = true; },
     .triedFirst = "9600,n,8,1, unit 3, 200 ms: an answer"},
    {.name = "AnEchoThatIsntThere",
     .ailment = Ailment::EchoSet,
     .sentence = "Unit 3 answers, but the adapter doesn't echo: clear \"Adapter echoes\".",
     .spoil = [](Visit_Rig& rig) { rig.settings.adapterEchoes = true; },
     .triedFirst = "9600,n,8,1, unit 3, 200 ms: an answer"},
    {.name = "NothingButTheEcho",
     .ailment = Ailment::OnlyEcho,
     .sentence =
         "Unit 3 is silent, though the adapter repeats what is sent: exchange the wires A and B, and check "
         "the controller's supply.",
     .spoil =
         [](Visit_Rig& rig) {
             rig.line.echoes = true;
             rig.line.controllers.clear();
         },
     .triedFirst = "9600,n,8,1, unit 3, 200 ms: only the adapter's echo"},
    {.name = "Silence", // as set, long, two parities, stop bits, seven numbers, seven speeds, five of both
     .ailment = Ailment::Silence,
     .sentence =
         "Unit 3 is silent at all usual settings: check its supply and its cable, exchange the wires A and "
         "B, and try another RTS mode.",
     .spoil = [](Visit_Rig& rig) { rig.line.controllers.clear(); },
     .lines = 25},
    {.name = "AnotherMaster",
     .ailment = Ailment::OtherMaster,
     .sentence = otherMaster,
     .spoil =
         [](Visit_Rig& rig) { rig.line.masters = {{.firstAt = 100 * ms, .request = requestOfAnother()}}; },
     .triedFirst = "",
     .requests = 0},
    {.name = "AnotherMasterByTheAnswersAlone", // whose requests go over wires that this adapter doesn't hear
     .ailment = Ailment::OtherMaster,
     .sentence = "Another master is on the line: unit 7 answers it. Let only one master use it.",
     .spoil =
         [](Visit_Rig& rig) {
             rig.line.masters = {
                 {.firstAt = 100 * ms, .request = zorvane::testing::withCrc({7, 3, 4, 0, 1, 0, 2})}};
         },
     .triedFirst = "",
     .requests = 0},
    {.name = "AnotherMasterThatComesLater", // it was quiet while the line was listened to
     .ailment = Ailment::OtherMaster,
     .sentence = otherMaster,
     .spoil =
         [](Visit_Rig& rig) {
             rig.line.controllers.clear();
             rig.line.masters = {{.firstAt = 2000 * ms, .request = requestOfAnother()}};
         },
     .triedFirst = "",
     .requests = 1}, // as set
    {.name = "AnAdapterThatWasTakenAway",
     .ailment = Ailment::PortFailed,
     .sentence = "Input/output error",
     .spoil =
         [](Visit_Rig& rig) {
             rig.line.controllers.clear();
             rig.clock.in(2 * microsPerSecond, [&rig] { rig.line.unplug(); });
         },
     .triedFirst = ""},
    {.name = "APortThatCannotBeOpened",
     .ailment = Ailment::PortFailed,
     .sentence = "No such port: ttyUSB0",
     .spoil = [](Visit_Rig& rig) { rig.line.opens = false; },
     .triedFirst = ""},
};

struct DoctorVisits : ::testing::TestWithParam<Ill_Line> {};

INSTANTIATE_TEST_SUITE_P(Find, DoctorVisits, ::testing::ValuesIn(illLines),
                         [](const auto& ill) { return std::string(ill.param.name); });

TEST_P(DoctorVisits, SayIt) {
    const Ill_Line& ill = GetParam();
    Visit_Rig rig(ill.ofController);
    ill.spoil(rig);
    const Diagnosis diagnosis = rig.visit();
    EXPECT_EQ(diagnosis.ailment, ill.ailment);
    EXPECT_EQ(diagnosis.sentence, ill.sentence);
    const bool tried = diagnosis.report.size() > 1;
    EXPECT_EQ(tried ? diagnosis.report.front() : "", ill.triedFirst);
    EXPECT_EQ(diagnosis.report.size(), ill.lines.value_or(diagnosis.report.size()));
    EXPECT_EQ(rig.line.written.size(), ill.requests.value_or(rig.line.written.size()));
}

TEST(DoctorVisit, FindsAGoodLineGood) {
    Visit_Rig rig;
    const Diagnosis diagnosis = rig.visit();
    EXPECT_EQ(diagnosis.ailment, Ailment::None);
    EXPECT_EQ(diagnosis.sentence,
              "The line is good: Unit 3 answered 50 reads, 99 % of them within 12 ms; a time-out of "
              "100 ms is enough.");
    EXPECT_EQ(diagnosis.proposedTimeOutMs, 100);
    EXPECT_EQ(diagnosis.report,
              (std::vector<std::string>{"9600,n,8,1, unit 3, 200 ms: an answer", diagnosis.sentence}));
    EXPECT_EQ(rig.line.written.size(), 50U);
}

TEST(DoctorVisit, FindsATimeOutThatIsTooShort) {
    Visit_Rig rig;
    rig.line.controllers[0].shortestDelay = rig.line.controllers[0].longestDelay = 700 * ms;
    const Diagnosis diagnosis = rig.visit();
    EXPECT_EQ(diagnosis.ailment, Ailment::TimeOut);
    EXPECT_EQ(diagnosis.sentence, "Unit 3 answers only after 707 ms: set the time-out to 2150 ms.");
    EXPECT_EQ(diagnosis.proposedTimeOutMs, 2150);
}

TEST(DoctorVisit, FindsTwoControllersOfOneNumber) {
    Visit_Rig rig;
    rig.line.controllers.push_back(
        {.unit = 3, .shortestDelay = 40 * ms, .longestDelay = 40 * ms, .registers = {{0, 8}}});
    const Diagnosis diagnosis = rig.visit();
    EXPECT_EQ(diagnosis.ailment, Ailment::Twins);
    EXPECT_EQ(diagnosis.sentence,
              "Unit 3 answered twice 3 times in 50 reads: two controllers have this number; give one of "
              "them another.");
    EXPECT_EQ(diagnosis.report,
              (std::vector<std::string>{"9600,n,8,1, unit 3, 200 ms: an answer", diagnosis.sentence}));
}

TEST(DoctorVisit, FindsDamagedAnswers) {
    Visit_Rig rig;
    rig.line.controllers[0].damagedFirst = 2;
    const Diagnosis diagnosis = rig.visit();
    EXPECT_EQ(diagnosis.ailment, Ailment::Noise);
    EXPECT_EQ(diagnosis.sentence,
              "2 answers of Unit 3 came damaged beside 50 reads: terminate both ends of the line, bias it in "
              "one place, and join the grounds.");
    Visit_Rig once;
    once.line.controllers[0].damagedFirst = 1;
    EXPECT_EQ(once.visit().sentence.substr(0, 43), "1 answer of Unit 3 came damaged beside 50 r");
}

/// An adapter or a gateway that mixes up its answers: each comes under the number 9.
TEST(DoctorVisit, FindsAStranger) {
    Visit_Rig rig;
    rig.line.controllers[0].answersAs = 9;
    const Diagnosis diagnosis = rig.visit();
    EXPECT_EQ(diagnosis.ailment, Ailment::Stranger);
    EXPECT_EQ(diagnosis.sentence,
              "Another unit answers in place of 3: look for a gateway or an adapter that mixes up its "
              "answers, or set that unit's number.");
    EXPECT_EQ(diagnosis.report.front(), "9600,n,8,1, unit 3, 200 ms: an answer of another unit");
    EXPECT_EQ(diagnosis.report.at(5), "9600,n,8,1, unit 2, 300 ms: silence");
    EXPECT_EQ(diagnosis.report.back(), diagnosis.sentence);
}

TEST(DoctorVisit, FindsNothingInAnEchoThatTheSettingsKnow) {
    Visit_Rig known;
    known.line.echoes = known.settings.adapterEchoes = true;
    EXPECT_EQ(known.visit().ailment, Ailment::None);
}

TEST(DoctorVisit, TellsWhatIsTried) {
    Visit_Rig rig;
    rig.line.controllers[0].unit = 2;
    std::vector<std::string> tried;
    Doctor_Visit doctor(rig.line, rig.clock, rig.settings, 0,
                        [&tried](const std::string& what) { tried.push_back(what); });
    std::vector<Diagnosis> told;
    doctor.start([&told](const Diagnosis& diagnosis) { told.push_back(diagnosis); });
    rig.clock.runUntilTrue([&told] { return !told.empty(); }, 600 * microsPerSecond);
    EXPECT_EQ(tried, (std::vector<std::string>{"listening", "9600,n,8,1, unit 3, 200 ms",
                                               "9600,n,8,1, unit 3, 3000 ms", "9600,e,8,2, unit 3, 300 ms",
                                               "9600,o,8,2, unit 3, 300 ms", "9600,n,8,2, unit 3, 300 ms",
                                               "9600,n,8,1, unit 2, 300 ms"}));
    EXPECT_EQ(
        reportText(rig.settings, told.at(0)),
        "Port ttyUSB0, 9600,n,8,1, unit 3, time-out 200 ms\n"
        "9600,n,8,1, unit 3, 200 ms: silence\n"
        "9600,n,8,1, unit 3, 3000 ms: silence\n"
        "9600,e,8,2, unit 3, 300 ms: silence\n"
        "9600,o,8,2, unit 3, 300 ms: silence\n"
        "9600,n,8,2, unit 3, 300 ms: silence\n"
        "9600,n,8,1, unit 2, 300 ms: an answer\n"
        "Unit 3 doesn't answer, but unit 2 does: if that is the controller, set its number as the slave "
        "number; else check the supply and the wires of unit 3.\n");
}

/// A port on a network.
struct Network_Visit : Visit_Rig {
    explicit Network_Visit(const char* port, Line_Settings ofController = {9600, 'N', 8, 1})
        : Visit_Rig(ofController) {
        settings.port = port;
        line.network = 3 * ms;
    }
};

TEST(DoctorVisit, TriesNoSettingsOfALineThatNobodySetsFromHere) {
    Network_Visit silent("tcp:gate:502");
    silent.line.controllers.clear();
    const Diagnosis diagnosis = silent.visitNetwork();
    EXPECT_EQ(diagnosis.ailment, Ailment::Silence);
    EXPECT_EQ(
        diagnosis.sentence,
        "Unit 3 is silent, though gate:502 takes the connection: check the slave number, the controller's "
        "supply, and the settings of its line there.");
    EXPECT_EQ(diagnosis.report.front(), "unit 3, 200 ms: silence");
    EXPECT_EQ(diagnosis.report.size(), 10U); // as set, long, seven numbers
    EXPECT_EQ(silent.line.opened, 1);
}

TEST(DoctorVisit, FindsTheNumberBehindAGateway) {
    Network_Visit other("tcp:gate:502");
    other.line.controllers[0].unit = 4;
    EXPECT_EQ(other.visitNetwork().ailment, Ailment::Unit);
    Network_Visit gateway("tcp:gate:502");
    gateway.line.controllers.clear();
    gateway.line.gateway = 10;
    EXPECT_EQ(gateway.visitNetwork().ailment, Ailment::Gateway);
    Network_Visit good("tcp:gate:502");
    EXPECT_EQ(good.visitNetwork().sentence,
              "The line is good: Unit 3 answered 50 reads, 99 % of them within 8 ms; a time-out of 100 ms is "
              "enough.");
}

/// It says so only when it has given up asking its own line.
TEST(DoctorVisit, HearsAGatewayThatTakesItsTime) {
    Network_Visit slow("tcp:gate:502");
    slow.line.controllers.clear();
    slow.line.gateway = 11;
    slow.line.gatewayDelay = 1500 * ms;
    const Diagnosis diagnosis = slow.visitNetwork();
    EXPECT_EQ(diagnosis.ailment, Ailment::Gateway);
    EXPECT_EQ(diagnosis.report,
              (std::vector<std::string>{"unit 3, 200 ms: silence", "unit 3, 3000 ms: a gateway's exception",
                                        diagnosis.sentence}));
}

TEST(DoctorVisit, FindsTheSpeedBehindAServerThatSetsItsLine) {
    Network_Visit rig("rfc2217:gate:2217", {38400, 'N', 8, 1});
    rig.settings.line.baud = 19200;
    rig.line.refusedBaud = 9600;
    const Diagnosis diagnosis = rig.visit();
    EXPECT_EQ(diagnosis.sentence, "Unit 3 has 38400 baud: set it here too.");
    EXPECT_EQ(diagnosis.report.at(12), "9600,n,8,2, unit 3, 300 ms: the server doesn't take these settings");
    Network_Visit unreachable("rfc2217:gate:2217");
    unreachable.line.opens = false;
    EXPECT_EQ(unreachable.visit().sentence, "Refused.");
}

TEST(DoctorVisit, EndsWhenItIsCancelled) {
    Visit_Rig rig;
    Doctor_Visit doctor(rig.line, rig.clock, rig.settings, 0);
    int told = 0;
    doctor.start([&told](const Diagnosis&) { ++told; });
    rig.clock.runFor(2 * microsPerSecond);
    doctor.cancel();
    rig.clock.runFor(60 * microsPerSecond);
    EXPECT_EQ(told, 0);
    EXPECT_FALSE(rig.line.isOpen());
}

} // namespace
} // namespace zorvane::survey
