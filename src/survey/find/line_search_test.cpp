// SPDX-License-Identifier: MIT
#include "survey/find/line_search.h"
#include "survey/find/testing/search_run.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

using namespace survey::testing;
using zorvane::testing::bytesOf;
using zorvane::testing::Hand_Clock;
using zorvane::testing::withCrc;

TEST(LineSearch, FindsAControllerByTwoEqualAnswers) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 3}};
    const Search_Run run(clock, line, oneLine(5));
    EXPECT_EQ(run.report.end, Search_End::Searched);
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"3 at 9600,n,8,1"}));
    EXPECT_EQ(run.report.found[0].damaged, 0);
    // Five characters' request end to the answer's end: 5 ms and seven characters.
    EXPECT_EQ(run.report.found[0].times.count(), 10U);
    EXPECT_EQ(run.report.found[0].times.median(), 12300);
    EXPECT_EQ(run.report.requests, 14U); // four silent units, ten reads
    EXPECT_EQ(run.report.requests, line.written.size());
    EXPECT_TRUE(onlyReads(line.written));
    EXPECT_EQ(run.ended, 1);
    EXPECT_FALSE(line.isOpen());
}

TEST(LineSearch, TakesARefusalForAController) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 2, .registers = {}}};
    EXPECT_EQ(foundTexts(Search_Run(clock, line, oneLine(3)).report),
              (std::vector<std::string>{"2 at 9600,n,8,1"}));
}

TEST(LineSearch, ListensFirstAndSendsNothingMeanwhile) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    Line_Search search(line, clock, oneLine(1));
    search.start([](const Search_Report&) {});
    clock.runFor(1499 * ms);
    EXPECT_TRUE(line.isOpen());
    EXPECT_EQ(line.written.size(), 0U);
    clock.runFor(10 * ms);
    EXPECT_EQ(line.written.size(), 1U);
}

TEST(LineSearch, TakesAsLongAsItsWaits) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    const Search_Run run(clock, line, oneLine(20));
    EXPECT_EQ(run.report.requests, 20U);
    EXPECT_TRUE(run.report.found.empty());
    // 1.5 s of listening, 20 requests of 8.3 ms with 100 ms each, and a second for a slow answer to the last.
    EXPECT_GE(run.report.duration, 1500 * ms + 20 * (108 * ms) + 1000 * ms);
    EXPECT_LE(run.report.duration, 1500 * ms + 20 * (114 * ms) + 1000 * ms);
}

TEST(LineSearch, TriesLikelySettingsInOrderWithTwoStopBits) {
    Hand_Clock clock;
    Simulated_Line line(clock, {300, 'N', 8, 1});
    const std::vector<Line_Settings> ofTemplates{{4800, 'E', 8, 1}};
    const Search_Run run(clock, line, planFor(likelyLines(Line_Settings{57600, 'O', 8, 1}, ofTemplates), 1));
    const std::vector<std::string> first(run.seen.begin() + 1, run.seen.begin() + 6);
    EXPECT_EQ(first, (std::vector<std::string>{"57600,o,8,2: 1", "4800,e,8,2: 1", "19200,e,8,2: 1",
                                               "9600,n,8,2: 1", "9600,e,8,2: 1"}));
    EXPECT_EQ(run.report.requests, 24U); // eight speeds, three parities, and no stop bits beside
}

TEST(LineSearch, TellsOneStopBitWhereOneIsEnough) {
    for (const int stopBits : {1, 2}) {
        Hand_Clock clock;
        Simulated_Line line(clock, {19200, 'E', 8, stopBits});
        line.controllers = {{.unit = 4}, {.unit = 9}};
        const Search_Run run(clock, line, planFor(likelyLines({}, {}), 10));
        const std::string at = " at 19200,e,8," + std::to_string(stopBits);
        EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"4" + at, "9" + at}));
    }
}

TEST(LineSearch, TriesOneStopBitAnewWithEachUnit) {
    Hand_Clock clock;
    Simulated_Line line(clock, {19200, 'E', 8, 1});
    line.controllers = {{.unit = 3, .counts = true}, {.unit = 4}}; // the first never answers the same twice
    const Search_Run run(clock, line, planFor(likelyLines({}, {}), 5));
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"4 at 19200,e,8,1"}));
    std::vector<int> stopBits;
    for (const Line_Settings& used : line.linesUsed)
        stopBits.push_back(used.stopBits);
    EXPECT_EQ(stopBits, (std::vector<int>{2, 1, 2, 1}));
}

TEST(LineSearch, KeepsTheSettingAfterTheFirstFindAndSearchesAllUnits) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 7}, {.unit = 240}};
    const Search_Run run(clock, line, planFor(likelyLines({}, {})));
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"240 at 9600,n,8,1", "7 at 9600,n,8,1"}));
    EXPECT_EQ(run.report.requests, 20U + 247U + 2 * 9U); // 19200 8E1 first, then all units, and further reads
}

TEST(LineSearch, StopsAtAnotherMasterBeforeItSends) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 3}};
    line.masters = {{.firstAt = 700 * ms, .request = withCrc(bytesOf("07 03 00 00 00 0A"))}};
    const Search_Run run(clock, line, oneLine(5));
    EXPECT_EQ(run.report.end, Search_End::ForeignMaster);
    EXPECT_EQ(run.report.foreignMaster,
              "Another master is on the line: it asks unit 7, 10 registers from address 0 on "
              "(function 3). Let only one master use it.");
    EXPECT_EQ(run.report.requests, 0U);
    EXPECT_EQ(line.written.size(), 0U);
}

TEST(LineSearch, HearsAnotherMasterAtSettingsOfItsOwn) {
    Hand_Clock clock;
    Simulated_Line line(clock, {38400, 'N', 8, 1});
    line.masters = {{.firstAt = 10 * ms,
                     .period = 900 * ms,
                     .request = withCrc(bytesOf("07 06 00 00 00 0A")),
                     .answer = withCrc(bytesOf("07 06 00 00 00 0A"))}};
    const Search_Run run(clock, line, planFor(likelyLines({}, {})));
    EXPECT_EQ(run.report.end, Search_End::ForeignMaster);
    EXPECT_EQ(run.report.foreignMaster,
              "Another master is on the line: it writes to unit 7, 1 register from address 0 "
              "on (function 6). Let only one master use it.");
    EXPECT_EQ(line.written.size(), 0U);
}

/// Its request may begin in one of ours and end in the next.
TEST(LineSearch, StopsAtAnotherMasterThatComesLater) {
    for (Micros firstAt = 3000 * ms; firstAt < 3130 * ms; firstAt += 2 * ms) {
        Hand_Clock clock;
        Simulated_Line line(clock, {9600, 'N', 8, 1});
        line.masters = {{.firstAt = firstAt, .request = withCrc(bytesOf("07 03 00 00 00 0A"))}};
        const Search_Run run(clock, line, oneLine(247));
        EXPECT_EQ(run.report.end, Search_End::ForeignMaster);
        EXPECT_LE(run.report.duration, firstAt + 150 * ms) << firstAt;
    }
}

TEST(LineSearch, HearsAnotherMasterByItsAnswersAlone) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.masters = {{.firstAt = 1, .request = withCrc(bytesOf("07 03 04 00 00 0A 11"))}};
    const Search_Run run(clock, line, oneLine(5));
    EXPECT_EQ(run.report.foreignMaster,
              "Another master is on the line: unit 7 answers it (function 3). Let only one master use it.");
}

TEST(LineSearch, PassesOverAnAdaptersEcho) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.echoes = true;
    line.controllers = {{.unit = 3}};
    const Search_Run run(clock, line, oneLine(5));
    EXPECT_EQ(run.report.end, Search_End::Searched);
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"3 at 9600,n,8,1"}));
    EXPECT_EQ(run.report.requests, 14U);
}

TEST(LineSearch, TakesNoGatewaysExceptionForAController) {
    for (const std::uint8_t code : {std::uint8_t{10}, std::uint8_t{11}}) {
        Hand_Clock clock;
        Simulated_Line line(clock, {9600, 'N', 8, 1});
        Search_Plan plan = oneLine(3);
        line.gateway = code;
        line.controllers = {{.unit = 2}};
        const Search_Run run(clock, line, plan);
        EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"2 at 9600,n,8,1"}));
    }
}

TEST(LineSearch, CountsDamagedAnswers) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1}, 5);
    line.controllers = {{.unit = 2, .damaged = 0.5}};
    const Search_Run run(clock, line, oneLine(3));
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"2 at 9600,n,8,1"}));
    EXPECT_GT(run.report.found[0].damaged, 0);
    EXPECT_EQ(run.report.requests, 2 + 10U + static_cast<unsigned>(run.report.found[0].damaged));
}

TEST(LineSearch, NamesAUnitThatOnlyEverAnswersDamaged) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 2, .damaged = 1}};
    const Search_Run run(clock, line, oneLine(3));
    EXPECT_TRUE(run.report.found.empty());
    ASSERT_EQ(run.report.doubtful.size(), 1U);
    EXPECT_EQ(run.report.doubtful[0].unit, 2);
    EXPECT_EQ(run.report.doubtful[0].damaged, 12);
}

TEST(LineSearch, NamesAUnitThatNeverAnswersTwiceTheSame) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 2, .counts = true}};
    const Search_Run run(clock, line, oneLine(3));
    EXPECT_TRUE(run.report.found.empty());
    ASSERT_EQ(run.report.doubtful.size(), 1U);
    EXPECT_EQ(run.report.doubtful[0].unit, 2);
    EXPECT_TRUE(run.report.doubtful[0].unlike);
    EXPECT_EQ(run.report.doubtful[0].damaged, 0);
}

TEST(LineSearch, TellsTwoControllersOfOneNumberByTheirAnswers) {
    Hand_Clock clock;
    Simulated_Line line(clock, {19200, 'N', 8, 1});
    const Line_Controller one{
        .unit = 5, .shortestDelay = 2 * ms, .longestDelay = 12 * ms, .registers = {{0, 10}}};
    const Line_Controller other{
        .unit = 5, .shortestDelay = 10 * ms, .longestDelay = 40 * ms, .registers = {{0, 20}}};
    line.controllers = {one, other};
    const Search_Run run(clock, line, planFor(namedLines(std::vector<Line_Settings>{{19200, 'N', 8, 1}}), 8));
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"5 at 19200,n,8,1"}));
    EXPECT_GT(run.report.found[0].damaged, 0);
}

TEST(LineSearch, CountsTheSecondAnswersOfTwoControllersThatAnswerTheSame) {
    Hand_Clock clock;
    Simulated_Line line(clock, {19200, 'N', 8, 1});
    line.controllers = {{.unit = 5, .shortestDelay = 5 * ms, .longestDelay = 5 * ms},
                        {.unit = 5, .shortestDelay = 9 * ms, .longestDelay = 9 * ms}};
    const Search_Run run(clock, line, planFor(namedLines(std::vector<Line_Settings>{{19200, 'N', 8, 1}}), 8));
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"5 at 19200,n,8,1"}));
    EXPECT_GT(run.report.found[0].damaged, 0);
}

TEST(LineSearch, FindsASlowControllerByItsLateAnswer) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 2, .shortestDelay = 300 * ms, .longestDelay = 320 * ms},
                        {.unit = 9, .shortestDelay = 600 * ms, .longestDelay = 620 * ms}};
    const Search_Run run(clock, line, oneLine(9));
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"2 at 9600,n,8,1", "9 at 9600,n,8,1"}));
    EXPECT_GE(run.report.found[0].times.median(), 300 * ms);
}

TEST(LineSearch, SaysWhyThePortCannotBeOpened) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.opens = false;
    const Search_Run run(clock, line, oneLine(9));
    EXPECT_EQ(run.report.end, Search_End::PortFailed);
    EXPECT_EQ(run.report.reason, "No such port: ttyUSB0");
    EXPECT_EQ(run.report.requests, 0U);
}

TEST(LineSearch, EndsWhenTheAdapterIsUnplugged) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    clock.in(2 * microsPerSecond, [&line] { line.unplug(); });
    const Search_Run run(clock, line, oneLine(50));
    EXPECT_EQ(run.report.end, Search_End::PortFailed);
    EXPECT_EQ(run.report.reason, "Input/output error");
    EXPECT_EQ(run.ended, 1);
}

TEST(LineSearch, StopsWhenItIsToldTo) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 1}};
    Line_Search search(line, clock, oneLine(50));
    std::vector<Search_Report> reports;
    search.start([&reports](const Search_Report& report) { reports.push_back(report); });
    clock.runFor(3 * microsPerSecond);
    search.stop();
    clock.runFor(3 * microsPerSecond);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].end, Search_End::Stopped);
    EXPECT_EQ(foundTexts(reports[0]), (std::vector<std::string>{"1 at 9600,n,8,1"}));
    EXPECT_FALSE(line.isOpen());
}

} // namespace
} // namespace zorvane::survey
