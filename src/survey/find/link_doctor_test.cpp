// SPDX-License-Identifier: MIT
// The doctor's questions in their order, and what it makes of the answers.
#include "survey/find/link_doctor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::survey {
namespace {

using Texts = std::vector<std::string>;

Port_Settings settingsOf(Line_Settings line, std::int32_t unit, std::int32_t timeOutMs,
                         const char* port = "ttyUSB0") {
    Port_Settings settings;
    settings.port = port;
    settings.line = line;
    settings.slave = unit;
    settings.timeOutMs = timeOutMs;
    return settings;
}

const Port_Settings usual = settingsOf({9600, 'N', 8, 1}, 3, 200);

/// All steps of a doctor to whom nobody answers.
Texts stepsOf(const Port_Settings& settings, bool lineCounts = true) {
    Texts steps;
    for (Link_Doctor doctor(settings); !doctor.done(); doctor.take({}))
        steps.push_back(stepWords(doctor.step(), lineCounts));
    return steps;
}

/// What it says when the steps bring this, and all after them silence.
Diagnosis after(const std::vector<Step_Outcome>& outcomes, const Port_Settings& settings = usual) {
    Link_Doctor doctor(settings);
    for (std::size_t i = 0; !doctor.done(); ++i)
        doctor.take(i < outcomes.size() ? outcomes[i] : Step_Outcome{});
    return doctor.diagnosis();
}

/// An answer to as many reads as this, each after 10 ms.
Step_Outcome answers(int reads) {
    Step_Outcome outcome{.answered = true, .first = Try_Kind::Answer};
    for (int i = 0; i < reads; ++i)
        outcome.times.add(10 * microsPerMs);
    return outcome;
}

TEST(LinkDoctor, AsksForWhatIsWrongMostOftenFirst) {
    EXPECT_EQ(
        stepsOf(usual),
        (Texts{
            "9600,n,8,1, unit 3, 200 ms",  "9600,n,8,1, unit 3, 3000 ms",  "9600,e,8,2, unit 3, 300 ms",
            "9600,o,8,2, unit 3, 300 ms",  "9600,n,8,2, unit 3, 300 ms",   "9600,n,8,1, unit 2, 300 ms",
            "9600,n,8,1, unit 4, 300 ms",  "9600,n,8,1, unit 1, 300 ms",   "9600,n,8,1, unit 5, 300 ms",
            "9600,n,8,1, unit 6, 300 ms",  "9600,n,8,1, unit 7, 300 ms",   "9600,n,8,1, unit 8, 300 ms",
            "19200,n,8,2, unit 3, 300 ms", "38400,n,8,2, unit 3, 300 ms",  "115200,n,8,2, unit 3, 300 ms",
            "57600,n,8,2, unit 3, 300 ms", "4800,n,8,2, unit 3, 300 ms",   "2400,n,8,2, unit 3, 300 ms",
            "1200,n,8,2, unit 3, 300 ms",  "19200,e,8,2, unit 3, 300 ms",  "38400,e,8,2, unit 3, 300 ms",
            "4800,e,8,2, unit 3, 300 ms",  "115200,e,8,2, unit 3, 300 ms", "57600,e,8,2, unit 3, 300 ms"}));
}

TEST(LinkDoctor, AsksOnceWhereTheTimeOutIsLongAlready) {
    const Texts steps = stepsOf(settingsOf({9600, 'N', 8, 2}, 3, 3000));
    EXPECT_EQ(steps[0], "9600,n,8,2, unit 3, 3000 ms");
    EXPECT_EQ(steps[1], "9600,e,8,2, unit 3, 3000 ms");
    EXPECT_EQ(steps[3], "9600,n,8,1, unit 3, 3000 ms");
    EXPECT_EQ(stepsOf(settingsOf({9600, 'N', 8, 2}, 3, 2999))[1], "9600,n,8,2, unit 3, 3000 ms");
}

TEST(LinkDoctor, AsksNumbersThatThereAreAlone) {
    EXPECT_EQ(stepsOf(settingsOf({9600, 'N', 8, 1}, 246, 300, "tcp:gate:502"), false),
              (Texts{"unit 246, 300 ms", "unit 246, 3000 ms", "unit 245, 300 ms", "unit 247, 300 ms",
                     "unit 244, 300 ms", "unit 243, 300 ms", "unit 242, 300 ms", "unit 241, 300 ms"}));
    EXPECT_EQ(stepsOf(settingsOf({9600, 'N', 8, 1}, 1, 300, "tcp:gate:502"), false),
              (Texts{"unit 1, 300 ms", "unit 1, 3000 ms", "unit 2, 300 ms", "unit 3, 300 ms",
                     "unit 4, 300 ms", "unit 5, 300 ms", "unit 6, 300 ms"}));
}

TEST(LinkDoctor, ReadsFiftyTimesAsSetAndThreeTimesElse) {
    Link_Doctor doctor(usual);
    EXPECT_EQ(doctor.step().reads, 50);
    EXPECT_EQ(doctor.step().shows, Ailment::None);
    doctor.take({});
    EXPECT_EQ(doctor.step().reads, 3);
    EXPECT_EQ(doctor.step().shows, Ailment::TimeOut);
}

TEST(LinkDoctor, EndsAtAnAnswer) {
    Link_Doctor doctor(usual);
    doctor.take({});
    EXPECT_FALSE(doctor.done());
    doctor.take(answers(3));
    EXPECT_TRUE(doctor.done());
    EXPECT_EQ(doctor.diagnosis().report,
              (Texts{"9600,n,8,1, unit 3, 200 ms: silence", "9600,n,8,1, unit 3, 3000 ms: an answer",
                     "Unit 3 answers only after 10 ms: set the time-out to 100 ms."}));
}

/// At settings that may be wrong it may be rubbish.
TEST(LinkDoctor, BelievesAGatewayOnlyAtTheSettingsAsSet) {
    const Step_Outcome gateway{.first = Try_Kind::Gateway};
    EXPECT_EQ(after({gateway}).ailment, Ailment::Gateway);
    EXPECT_EQ(after({{}, gateway}).ailment, Ailment::Gateway);
    const Diagnosis third = after({{}, {}, gateway});
    EXPECT_EQ(third.ailment, Ailment::Silence);
    EXPECT_EQ(third.report.size(), 25U);
    EXPECT_EQ(third.report[2], "9600,e,8,2, unit 3, 300 ms: a gateway's exception");
}

TEST(LinkDoctor, TellsRubbishOfAnyStep) {
    const Step_Outcome damaged{.first = Try_Kind::Damaged, .damaged = 3};
    const Diagnosis later = after({{}, {}, {}, damaged});
    EXPECT_EQ(later.ailment, Ailment::Rubbish);
    EXPECT_EQ(later.report[3], "9600,o,8,2, unit 3, 300 ms: no whole answer");
}

TEST(LinkDoctor, TellsAStrangerAndAnEchoOfTheFirstStepAlone) {
    const Step_Outcome stranger{.first = Try_Kind::Stranger};
    const Step_Outcome damaged{.first = Try_Kind::Damaged, .damaged = 3};
    const Step_Outcome echoed{.echoed = true};
    EXPECT_EQ(after({stranger, damaged}).ailment, Ailment::Stranger);
    EXPECT_EQ(after({{}, stranger}).ailment, Ailment::Silence);
    EXPECT_EQ(after({echoed, damaged}).ailment, Ailment::Rubbish);
    EXPECT_EQ(after({echoed}).ailment, Ailment::OnlyEcho);
    for (const Step_Outcome& outcome : {stranger, damaged, echoed, Step_Outcome{}})
        EXPECT_EQ(after({outcome}).proposedTimeOutMs, 0) << "no answer, no time";
    EXPECT_EQ(after({{}, echoed}).ailment, Ailment::Silence);
}

/// Of several things the one that spoils most is told: two controllers, then damage, then the echo.
TEST(LinkDoctor, TellsOneThingOfAnAnswerAsSet) {
    Step_Outcome outcome = answers(50);
    outcome.again = 1;
    outcome.damaged = 2;
    outcome.echoed = true;
    EXPECT_EQ(after({outcome}).sentence,
              "Unit 3 answered twice 1 time in 50 reads: two controllers have this number; give one of them "
              "another.");
    outcome.again = 0;
    EXPECT_EQ(after({outcome}).ailment, Ailment::Noise);
    EXPECT_EQ(after({outcome}).proposedTimeOutMs, 100);
    outcome.damaged = 0;
    EXPECT_EQ(after({outcome}).ailment, Ailment::EchoUnset);
    EXPECT_EQ(after({outcome}).proposedTimeOutMs, 100);
    outcome.echoed = false;
    EXPECT_EQ(after({outcome}).ailment, Ailment::None);
}

TEST(LinkDoctor, CountsOneReadInTheSingular) {
    EXPECT_EQ(after({answers(1)}).sentence,
              "The line is good: Unit 3 answered 1 read, 99 % of them within 10 ms; a time-out of 100 ms is "
              "enough.");
}

TEST(LinkDoctor, CountsOneStopBitInTheSingular) {
    const Port_Settings two = settingsOf({9600, 'N', 8, 2}, 3, 200);
    const Diagnosis diagnosis = after({{}, {}, {}, {}, answers(3)}, two);
    EXPECT_EQ(diagnosis.ailment, Ailment::StopBits);
    EXPECT_EQ(diagnosis.sentence, "Unit 3 has 1 stop bit: set them here too.");
}

TEST(LinkDoctor, NamesThePortAndItsLineInTheReport) {
    Diagnosis diagnosis;
    diagnosis.report = {"one", "two"};
    EXPECT_EQ(reportText(usual, diagnosis), "Port ttyUSB0, 9600,n,8,1, unit 3, time-out 200 ms\none\ntwo\n");
    EXPECT_EQ(reportText(settingsOf({9600, 'N', 8, 1}, 3, 200, "tcp:gate:502"), diagnosis),
              "Port tcp:gate:502, unit 3, time-out 200 ms\none\ntwo\n");
}

TEST(LinkDoctor, TellsAPortThatFailedAndAnotherMasterInTheirOwnWords) {
    const Diagnosis port = Link_Doctor::portFailed("No such port");
    EXPECT_EQ(port.ailment, Ailment::PortFailed);
    EXPECT_EQ(port.sentence, "No such port");
    EXPECT_EQ(port.report, Texts{"No such port"});
    const Diagnosis master = Link_Doctor::otherMaster("Another master");
    EXPECT_EQ(master.ailment, Ailment::OtherMaster);
    EXPECT_EQ(master.sentence, "Another master");
    EXPECT_EQ(master.report, Texts{"Another master"});
}

} // namespace
} // namespace zorvane::survey
