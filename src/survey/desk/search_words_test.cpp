// SPDX-License-Identifier: MIT
#include "survey/desk/search_words.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

using Notes = std::vector<std::string>;

Search_Report searched() {
    Search_Report report;
    report.end = Search_End::Searched;
    return report;
}

Found_Unit foundUnit(std::int32_t damaged) {
    Found_Unit found{9, {9600, 'N', 8, 1}, {}, damaged};
    found.times.add(12300);
    return found;
}

const char* const noneOnACable =
    "No controller was found. Is it switched on, and its cable in this port? With RS-485, exchange the wires "
    "A and B. A controller slower than 100 ms may be missed.";

TEST(SearchWords, SayWhereToLookWhenNothingWasFound) {
    EXPECT_EQ(findNotes(searched(), "ttyUSB0"), Notes{noneOnACable});
    EXPECT_EQ(
        findNotes(searched(), "tcp:gate:502"),
        Notes{"No controller was found. Is it switched on, and the line behind the server wired and set "
              "right? A controller slower than 100 ms may be missed."});
    Search_Report gateway = searched();
    gateway.gateway = true;
    EXPECT_EQ(
        findNotes(gateway, "tcp:gate:502"),
        Notes{"No controller was found. A gateway answers, but it can't reach these units (exceptions 10 "
              "and 11): check their numbers, and the line behind the gateway."});
}

TEST(SearchWords, SayNothingOfAGoodSearch) {
    Search_Report report = searched();
    report.found = {foundUnit(0)};
    EXPECT_EQ(findNotes(report, "ttyUSB0"), Notes{});
}

TEST(SearchWords, SayWhyASearchEnded) {
    Search_Report report;
    report.end = Search_End::PortFailed;
    report.reason = "Input/output error";
    EXPECT_EQ(findNotes(report, "ttyUSB0"), Notes{"The port ttyUSB0: Input/output error"});
    report.end = Search_End::Stopped;
    EXPECT_EQ(findNotes(report, "ttyUSB0"), Notes{"The search was stopped before its end."});
    report.end = Search_End::ForeignMaster;
    report.foreignMaster = "Another master is on the line.";
    EXPECT_EQ(findNotes(report, "ttyUSB0"), Notes{"Another master is on the line. The search has stopped."});
}

TEST(SearchWords, SayWhichAnswersCameDamaged) {
    Search_Report report = searched();
    report.found = {foundUnit(1)};
    EXPECT_EQ(findNotes(report, "ttyUSB0"),
              Notes{"Unit 9 at 9600,n,8,1: 1 of its answers came damaged or twice. Are there two controllers "
                    "with this number?"});
    report.linesCount = false;
    EXPECT_EQ(findNotes(report, "tcp:gate:502"),
              Notes{"Unit 9: 1 of its answers came damaged or twice. Are there two controllers with this "
                    "number?"});
}

/// Whose answers are whole needs no other cable; whose answers never are may.
TEST(SearchWords, SayWhoseAnswersAreInDoubt) {
    Search_Report report = searched();
    report.doubtful = {{5, {9600, 'N', 8, 1}, 0, true}};
    EXPECT_EQ(
        findNotes(report, "ttyUSB0"),
        Notes{"Unit 5 at 9600,n,8,1 answers, but never twice the same, so it doesn't count as found. Name "
              "a template, whose settings stand still, or look for two controllers with this number."});
    report.doubtful = {{5, {9600, 'N', 8, 1}, 12, false}};
    EXPECT_EQ(findNotes(report, "ttyUSB0"),
              (Notes{"Something answers as unit 5 at 9600,n,8,1, but never whole. Are there two controllers "
                     "with this number? Else look for noise: terminate both ends of the line, and join the "
                     "grounds.",
                     noneOnACable}));
}

TEST(SearchWords, SayThatALineIsNoisy) {
    Search_Report report = searched();
    report.found = {foundUnit(0)};
    report.noisy = true;
    EXPECT_EQ(findNotes(report, "ttyUSB0"),
              Notes{"Bytes came in that nobody had asked for and that are no frame: noise, or a device that "
                    "doesn't speak Modbus RTU."});
}

TEST(SearchWords, SayWhereASearchStands) {
    EXPECT_EQ(progressText({{9600, 'N', 8, 2}, true, 0, 0, 480, 0}), "Listening at 9600,n,8,2");
    EXPECT_EQ(progressText({{9600, 'N', 8, 2}, false, 0, 0, 480, 0}), "Listening");
    EXPECT_EQ(progressText({{9600, 'N', 8, 2}, true, 17, 16, 464, 1}),
              "9600,n,8,2, unit 17 (16 of 480 tried, 1 found)");
    EXPECT_EQ(progressText({{9600, 'N', 8, 2}, false, 17, 16, 464, 1}), "Unit 17 (16 of 480 tried, 1 found)");
}

TEST(SearchWords, TellAFindInARow) {
    EXPECT_EQ(foundRow(foundUnit(2), {"is", "ZX-3"}, true),
              (Notes{"9", "9600,n,8,1", "ZX-3", "12.3 ms", "12.3 ms", "2"}));
    EXPECT_EQ(foundRow(foundUnit(0), {"isn't", std::nullopt}, false),
              (Notes{"9", "-", "another", "12.3 ms", "12.3 ms", "0"}));
    EXPECT_EQ(foundRow(foundUnit(0), {}, false)[2], "?");
}

TEST(SearchPlanOfWishes, TakesTheLinesNamedOrTheLikelyOnes) {
    Find_Wishes wishes;
    wishes.port.port = "ttyUSB0";
    wishes.units = {3, 4};
    wishes.listen = 7;
    const Search_Plan likely = searchPlan(wishes, {});
    EXPECT_EQ(likely.lines, likelyLines({}, {}));
    EXPECT_EQ(likely.port.port, "ttyUSB0");
    EXPECT_EQ(likely.units, (std::vector<std::uint8_t>{3, 4}));
    EXPECT_EQ(likely.addresses, std::vector<std::uint16_t>{0});
    EXPECT_EQ(likely.listen, 7);
    wishes.lastGood = Line_Settings{2400, 'O', 8, 1};
    EXPECT_EQ(formatLineSettings(searchPlan(wishes, {}).lines.at(0).line), "2400,o,8,1");
    wishes.lines = {{4800, 'E', 8, 1}, {9600, 'N', 8, 2}};
    EXPECT_EQ(searchPlan(wishes, {}).lines, namedLines(wishes.lines));
    wishes.port.port = "tcp:gate:502";
    const std::vector<Line_Candidate> one{{{4800, 'E', 8, 1}, false}};
    EXPECT_EQ(searchPlan(wishes, {}).lines, one);
}

} // namespace
} // namespace zorvane::survey
