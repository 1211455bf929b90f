// SPDX-License-Identifier: MIT
#include "ctl/survey/find_report.h"
#include "ctl/survey/known_template.h"
#include "template/testing/memory_files.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

using survey::Find_Wishes;
using survey::findNotes;
using survey::progressText;
using survey::Search_End;
using survey::Search_Report;
using survey::searchPlan;

survey::Found_Unit foundUnit(std::uint8_t unit, std::int32_t damaged) {
    survey::Found_Unit found{unit, {9600, 'N', 8, 1}, {}, damaged};
    for (int i = 0; i < 9; ++i)
        found.times.add(12340);
    found.times.add(20000);
    return found;
}

Search_Report report(Search_End end, std::vector<survey::Found_Unit> found = {}) {
    Search_Report report;
    report.end = end;
    report.found = std::move(found);
    report.requests = 14;
    report.duration = 3141592;
    return report;
}

TEST(FindReport, PrintsItsJsonWithWhatWasFound) {
    EXPECT_EQ(compactJson(findJson(report(Search_End::Searched, {foundUnit(3, 0), foundUnit(5, 2)}),
                                   {{"is", "KVRT207D"}, {"can't tell", {}}})),
              R"({"found":[{"unit":3,"settings":"9600,n,8,1","verdict":"is","model":"KVRT207D",)"
              R"("answer_ms":{"median":12.3,"p99":20},"damaged":0},)"
              R"({"unit":5,"settings":"9600,n,8,1","verdict":"can't tell","model":null,)"
              R"("answer_ms":{"median":12.3,"p99":20},"damaged":2}],)"
              R"("foreign_master":null,"requests":14,"seconds":3.14})");
}

TEST(FindReport, PrintsItsJsonWithoutAnything) {
    Search_Report other = report(Search_End::ForeignMaster);
    other.foreignMaster = "Another master is on the line: it asks unit 7.";
    EXPECT_EQ(compactJson(findJson(other, {})),
              R"({"found":[],"foreign_master":"Another master is on the line: it asks unit 7.",)"
              R"("requests":14,"seconds":3.14})");
}

TEST(FindReport, EndsByWhatWasFound) {
    EXPECT_EQ(findExit(report(Search_End::Searched, {foundUnit(3, 0)})), 0);
    EXPECT_EQ(findExit(report(Search_End::Searched)), 3);
    EXPECT_EQ(findExit(report(Search_End::PortFailed)), 1);
    EXPECT_EQ(findExit(report(Search_End::ForeignMaster, {foundUnit(3, 0)})), 1);
    EXPECT_EQ(findExit(report(Search_End::Stopped, {foundUnit(3, 0)})), 1);
}

TEST(FindReport, PrintsATableForPeople) {
    std::ostringstream out;
    printFound(out, report(Search_End::Searched, {foundUnit(3, 0), foundUnit(5, 2), foundUnit(7, 0)}),
               {{"is", "KVRT207D"}, {"can't tell", {}}, {"isn't", {}}});
    EXPECT_EQ(out.str(), "Unit  Settings    Model     Answers after  99 % within  Damaged\n"
                         "3     9600,n,8,1  KVRT207D  12.3 ms        20.0 ms      0\n"
                         "5     9600,n,8,1  ?         12.3 ms        20.0 ms      2\n"
                         "7     9600,n,8,1  another   12.3 ms        20.0 ms      0\n");
    std::ostringstream none;
    printFound(none, report(Search_End::Searched), {});
    EXPECT_EQ(none.str(), "");
}

TEST(FindReport, SaysWhatToDo) {
    Search_Report failed = report(Search_End::PortFailed);
    failed.reason = "No such port: plug the adapter in, or choose another port.";
    EXPECT_EQ(findNotes(failed, "ttyUSB9"),
              std::vector<std::string>{
                  "The port ttyUSB9: No such port: plug the adapter in, or choose another port."});
    EXPECT_EQ(findNotes(report(Search_End::Searched, {foundUnit(5, 2)}), "p"),
              std::vector<std::string>{
                  "Unit 5 at 9600,n,8,1: 2 of its answers came damaged or twice. Are there two "
                  "controllers with this number?"});
    EXPECT_EQ(findNotes(report(Search_End::Searched, {foundUnit(5, 0)}), "p"), std::vector<std::string>{});
    Search_Report doubtful = report(Search_End::Searched);
    doubtful.doubtful = {{5, {9600, 'N', 8, 1}, 12}};
    EXPECT_EQ(findNotes(doubtful, "p").front(),
              "Something answers as unit 5 at 9600,n,8,1, but never whole. Are there two controllers with "
              "this number? "
              "Else look for noise: terminate both ends of the line, and join the grounds.");
}

/// A register that lives can't show that the same controller answers.
TEST(FindReport, NamesAUnitThatNeverAnswersTwiceTheSame) {
    Search_Report living = report(Search_End::Searched);
    living.doubtful = {{5, {9600, 'N', 8, 1}, 0, true}};
    EXPECT_EQ(findExit(living), 3);
    EXPECT_EQ(
        findNotes(living, "p"),
        std::vector<std::string>{
            "Unit 5 at 9600,n,8,1 answers, but never twice the same, so it doesn't count as found. Name a "
            "template, whose settings stand still, or look for two controllers with this number."});
}

/// Where it speaks, it is no question of the cable.
TEST(FindReport, NamesAGatewayThatReachesNobody) {
    Search_Report gateway = report(Search_End::Searched);
    gateway.gateway = true;
    EXPECT_EQ(findNotes(gateway, "tcp:gate:502"),
              std::vector<std::string>{
                  "No controller was found. A gateway answers, but it can't reach these units (exceptions 10 "
                  "and 11): check their numbers, and the line behind the gateway."});
    gateway.found = {foundUnit(5, 0)};
    EXPECT_EQ(findNotes(gateway, "tcp:gate:502"), std::vector<std::string>{});
}

/// Such a port has no settings that could be told.
TEST(FindReport, TellsNoSettingsOfAPortThatTakesNone) {
    Search_Report network = report(Search_End::Searched, {foundUnit(5, 2)});
    network.linesCount = false;
    EXPECT_TRUE(findJson(network, {{"is", "KVRT207D"}})["found"][0]["settings"].is_null());
    std::ostringstream out;
    printFound(out, network, {{"is", "KVRT207D"}});
    EXPECT_EQ(out.str(), "Unit  Settings  Model     Answers after  99 % within  Damaged\n"
                         "5     -         KVRT207D  12.3 ms        20.0 ms      2\n");
    EXPECT_EQ(findNotes(network, "tcp:gate:502").front(),
              "Unit 5: 2 of its answers came damaged or twice. Are there two controllers with this number?");
    EXPECT_EQ(
        findNotes(report(Search_End::Searched), "tcp:gate:502").front(),
        "No controller was found. Is it switched on, and the line behind the server wired and set right? "
        "A controller slower than 100 ms may be missed.");
}

/// A template of one polled block and one that stands still.
std::string templateText() {
    return "[HARDWARE]\r\nCONTROLLER=abc\r\n[PORT_CONFIGURATION]\r\nSETTINGS=4800,e,8,1\r\nRTU=16\r\n"
           "ADDRESSBASE=40001\r\nHOLDINGREGISTERSBLOCK_1=40101-40103\r\nHOLDINGREQUESTBLOCK_1=always\r\n"
           "HOLDINGREGISTERSBLOCK_2=40201-40203\r\n";
}

struct Plan_Rig {
    doubles::Memory_Files files;
    std::ostringstream out;
    std::ostringstream err;
    Call_Context context{files, out, err, "/app", false, nullptr};
};

TEST(FindPlan, TakesSettingsUnitAndRegisterOfATemplate) {
    Plan_Rig rig;
    rig.files.put("/app/ABC.ZTP", templateText());
    const auto templates = readKnownTemplates(rig.context, {"/app/ABC.ZTP"});
    ASSERT_TRUE(templates) << rig.err.str();
    const survey::Search_Plan plan = searchPlan({{}, {}, {1, 2, 16, 17}, 1500000}, templates->known);
    EXPECT_EQ(formatLineSettings(plan.lines[0].line), "4800,e,8,1");
    EXPECT_EQ(plan.lines.size(), 24U);
    EXPECT_EQ(plan.units, (std::vector<std::uint8_t>{16, 1, 2, 17}));
    EXPECT_EQ(plan.addresses, std::vector<std::uint16_t>{200});
    EXPECT_EQ(plan.listen, 1500000);
}

TEST(FindPlan, BeginsWithTheSettingsThatWereGoodLast) {
    Find_Wishes wishes{{}, {}, {1}, 0, Line_Settings{2400, 'O', 8, 1}};
    EXPECT_EQ(formatLineSettings(searchPlan(wishes, {}).lines[0].line), "2400,o,8,1");
}

TEST(FindPlan, TakesTheNamedSettingsAlone) {
    const survey::Search_Plan plan = searchPlan({{}, {{1200, 'O', 8, 1}}, {1}, 0}, {});
    ASSERT_EQ(plan.lines.size(), 1U);
    EXPECT_EQ(formatLineSettings(plan.lines[0].probed()), "1200,o,8,1");
    EXPECT_EQ(plan.addresses, std::vector<std::uint16_t>{0});
}

/// A port on a network that sets no line has no settings to try.
TEST(FindPlan, TriesOneLineWhereThePortHasNone) {
    Find_Wishes wishes{{}, {}, {1}, 0};
    wishes.port.port = "tcp:localhost:502";
    EXPECT_EQ(searchPlan(wishes, {}).lines.size(), 1U);
    wishes.port.port = "rfc2217:localhost:502";
    EXPECT_EQ(searchPlan(wishes, {}).lines.size(), 24U);
}

TEST(FindPlan, TellsATemplateThatIsNotThere) {
    Plan_Rig rig;
    EXPECT_FALSE(readKnownTemplates(rig.context, {"/app/NONE.ZTP"}));
    EXPECT_EQ(rig.err.str(), "zorvanectl: /app/NONE.ZTP: there is no such template. Check the path.\n");
}

TEST(FindProgress, TellsWhatIsTried) {
    EXPECT_EQ(progressText({{9600, 'N', 8, 2}, true, 17, 16, 464, 0}),
              "9600,n,8,2, unit 17 (16 of 480 tried, 0 found)");
    EXPECT_EQ(progressText({{9600, 'N', 8, 2}, true, 0, 0, 480, 0}), "Listening at 9600,n,8,2");
    EXPECT_EQ(progressText({{}, false, 17, 16, 464, 1}), "Unit 17 (16 of 480 tried, 1 found)");
    EXPECT_EQ(progressText({{}, false, 0, 0, 480, 0}), "Listening");
}

} // namespace
} // namespace zorvane::ctl
