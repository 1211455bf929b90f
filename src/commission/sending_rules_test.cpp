// SPDX-License-Identifier: MIT
// When a send asks who is there, what it does about blocks and the line, and what it says of values that
// change after they were read back.
#include "comm/modbus_control/line/port_texts.h"
#include "commission/testing/session_bench.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

namespace zorvane::commission {
namespace {

using doubles::Memory_Runs;
using doubles::Session_Bench;
using doubles::Standing_Clock;
using doubles::Toy_Controller;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Strike = Toy_Controller::Strike;

constexpr std::int32_t firstRegister = 100;
constexpr std::int32_t mark = 90; ///< the register that tells the model

/// A template of so many numbers in a row, with their controller. All values of the document differ.
struct Row_Bench {
    explicit Row_Bench(std::int32_t count) {
        const std::string last = std::to_string(firstRegister + count - 1);
        std::string text = "[HARDWARE]\nCONTROLLER=ROW\n[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=100-" +
                           last +
                           "\nHOLDINGREQUESTBLOCK_1=CONFIG\n[CONFIGURATION_FIELDS]\nFIELD_1_DESC=Numbers\n"
                           "FIELD_1_RC=" +
                           std::to_string(count) +
                           ",2\n[FIELD_1_COLUMNS]\nCOL_1_DESC=Name\nCOL_2_DESC=Value\nCOL_2_TYPE=NUMERIC\n"
                           "COL_2_MODIFIABLE=YES\nCOL_2_MDBUSREQUEST=CONFIG\n[FIELD_1_CONFIGURATION]\n";
        for (std::int32_t row = 1; row <= count; ++row)
            text +=
                "ROWADDRESS_" + std::to_string(row) + "=," + std::to_string(firstRegister + row - 1) + "\n";
        text += "[IDENTITY]\nREGISTER_1=90\nVALUE_1=7\n";
        bench.readTemplate(text);
        section = readIdentity(text);
        toy.registers[mark] = 7;
        for (std::int32_t row = 1; row <= count; ++row) {
            toy.registers[firstRegister + row - 1] = 0;
            bench.cell(1, row, 2).Value = std::to_string(row);
        }
    }

    [[nodiscard]] Session session() {
        return Session({toy, runs, clock, {}, {}, {}}, {bench.document,
                                                        section,
                                                        {"/t", "aa"},
                                                        {"/d", "bb"},
                                                        "controller.ROW",
                                                        "line",
                                                        1,
                                                        {},
                                                        2,
                                                        "test"});
    }
    [[nodiscard]] Session_End send() {
        Session at = session();
        const Controller_Look look = at.look();
        return at.send(at.plan(look, {}), look);
    }
    /// The events of the journal, "w" for a write's intent and "i" for the question who is there.
    [[nodiscard]] std::string story() {
        std::string told;
        const auto bytes = runs.read(listRuns(runs).front().name, journalFile).value_or("");
        for (const Json& record : readJournal(bytes).records) {
            if (record.at("event") == "write") told += 'w';
            if (record.at("event") == "identity") told += 'i';
        }
        return told;
    }

    /// The records of the journal without their times.
    [[nodiscard]] Json journal() {
        Json told = Json::array();
        const auto bytes = runs.read(listRuns(runs).front().name, journalFile).value_or("");
        for (Json record : readJournal(bytes).records) {
            record.erase("time");
            told.push_back(std::move(record));
        }
        return told;
    }

    zorvane::doubles::Reading_Bench bench;
    Identity_Section section;
    Toy_Controller toy;
    Memory_Runs runs;
    Standing_Clock clock;
};

std::string writes(std::size_t count) { return std::string(count, 'w'); }

TEST(SendingRules, WhoIsThereIsAskedEveryFiftyWrites) {
    Row_Bench bench(120);
    EXPECT_EQ(bench.send().step, Step::Good);
    EXPECT_EQ(bench.story(), "i" + writes(50) + "i" + writes(50) + "i" + writes(20) + "i");
}

TEST(SendingRules, WhoIsThereIsAskedEveryFiveSeconds) {
    Row_Bench bench(12);
    bench.toy.requestTime = microsPerSecond;
    EXPECT_EQ(bench.send().step, Step::Good);
    EXPECT_EQ(bench.story(), "i" + writes(5) + "i" + writes(5) + "i" + writes(2) + "i");
}

TEST(SendingRules, WhoIsThereIsAskedAfterAWriteWithoutAnAnswer) {
    for (const Strike strike :
         {Strike::Lose_Request, Strike::Lose_Answer, Strike::Unplug_Before, Strike::Unplug_After}) {
        SCOPED_TRACE(static_cast<int>(strike));
        Row_Bench calm(3);
        std::size_t firstWrite = 0;
        calm.toy.onRequest = [&] {
            if (calm.toy.writes == 1 && firstWrite == 0) firstWrite = calm.toy.requests();
        };
        ASSERT_EQ(calm.send().step, Step::Good);
        ASSERT_GT(firstWrite, 0U);

        Row_Bench bench(3);
        bench.toy.strikeAt(firstWrite, strike);
        const Session_End end = bench.send();
        EXPECT_EQ(end.step, Step::Good) << end.why;
        EXPECT_EQ(bench.story().substr(0, 3), "iwi");
    }
}

TEST(SendingRules, AnotherControllerAfterAReconnectGetsNoFurtherWrite) {
    Row_Bench bench(5);
    bench.toy.other = bench.toy.registers;
    bench.toy.other[mark] = 8;
    std::size_t struck = 0;
    bench.toy.onRequest =
        [&] { // the adapter goes with the second write, and comes back with another controller
            if (bench.toy.writes < 2 || struck == 2) return;
            bench.toy.strikeAt(bench.toy.requests(),
                               struck++ == 0 ? Strike::Unplug_Before : Strike::Exchange);
        };
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Wrong_Controller);
    EXPECT_EQ(bench.toy.writes, 2);
    EXPECT_EQ(bench.toy.writesToOther, 0);
    EXPECT_EQ(end.report.counts.of(Value_State::Verified), 0U);
}

TEST(SendingRules, TheJournalTellsEachStepInItsOrder) {
    Row_Bench bench(2);
    bench.toy.refusing = {101};
    EXPECT_EQ(bench.send().step, Step::Incomplete);
    EXPECT_EQ(bench.journal(), Json::parse(R"j([
        {"event": "begin", "unit": 1, "writes": 2},
        {"event": "identity", "verdict": "is", "why": ""},
        {"event": "write", "write": 0, "unit": 1, "function": 6, "address": 100, "values": [1]},
        {"event": "answer", "write": 0, "end": "acknowledged"},
        {"event": "write", "write": 1, "unit": 1, "function": 6, "address": 101, "values": [2]},
        {"event": "answer", "write": 1, "end": "refused", "fault": "exception 3"},
        {"event": "identity", "verdict": "is", "why": ""},
        {"event": "end", "end": "finished", "why": "", "verified": [0]}])j"));
}

TEST(SendingRules, TheJournalTellsOfAWriteThatWasTakenBackUnsent) {
    Row_Bench bench(1);
    Session session = bench.session();
    const Controller_Look look = session.look();
    bench.toy.strikeAt(bench.toy.requests() + 1, Strike::Cancel); // after the question who is there
    const Session_End end = session.send(session.plan(look, {}), look);
    EXPECT_EQ(end.why, "Stopped.");
    EXPECT_EQ(bench.journal(), Json::parse(R"j([
        {"event": "begin", "unit": 1, "writes": 1},
        {"event": "identity", "verdict": "is", "why": ""},
        {"event": "write", "write": 0, "unit": 1, "function": 6, "address": 100, "values": [1]},
        {"event": "answer", "write": 0, "end": "not sent"},
        {"event": "end", "end": "interrupted", "why": "Stopped.", "verified": []}])j"));
    EXPECT_EQ(bench.toy.registers.at(100), 0);
}

// What a refusal leads to.

TEST(SendingRules, ABusyControllerGetsTheValueAgainAsOftenAsTheLineRetries) {
    Row_Bench bench(1);
    bench.toy.refusing = {100};
    bench.toy.refusal = 6;
    EXPECT_EQ(bench.send().report.rows.at(0).state, Value_State::Refused);
    EXPECT_EQ(bench.toy.writes, 3) << "two retries";
}

TEST(SendingRules, AControllerThatWasBusyForAMomentHasTheValueInTheEnd) {
    Row_Bench bench(1);
    bench.toy.refusing = {100};
    bench.toy.refusal = 6;
    Micros first = 0;
    Micros second = 0;
    bench.toy.onRequest = [&] {
        if (bench.toy.writes == 1 && first == 0) first = bench.toy.now();
        if (bench.toy.writes != 2 || second != 0) return;
        second = bench.toy.now();
        bench.toy.refusing.clear();
    };
    EXPECT_EQ(bench.send().step, Step::Good);
    EXPECT_EQ(bench.toy.registers.at(100), 1);
    EXPECT_EQ(second - first, bench.toy.requestTime + 200 * microsPerMs) << "it got a moment";
}

TEST(SendingRules, ARefusalForAnotherReasonIsNotRepeated) {
    Row_Bench bench(1);
    bench.toy.refusing = {100};
    EXPECT_EQ(bench.send().report.rows.at(0).state, Value_State::Refused);
    EXPECT_EQ(bench.toy.writes, 1);
}

// What changes after it was read back.

TEST(SendingRules, AVerifiedValueThatChangesBeforeTheEndIsTold) {
    Row_Bench bench(60);
    bench.toy.onRequest = [&] {
        if (bench.toy.writes == 55) bench.toy.registers[firstRegister + 3] = 999;
    };
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Incomplete);
    const Sent_Row& row = end.report.rows.at(3);
    EXPECT_EQ(row.state, Value_State::Stored_Otherwise);
    EXPECT_EQ(row.readBack, (Known_Registers{999}));
    EXPECT_EQ(row.answer, "it was there, and has changed since");
    EXPECT_EQ(end.report.counts.of(Value_State::Verified), 59U);
}

TEST(SendingRules, AControllerThatStoresLateIsReadForTwoSeconds) {
    Row_Bench bench(2);
    Micros written = 0;
    bench.toy.onStore = [&](std::int32_t, std::uint16_t) {
        written = bench.toy.now();
        return std::uint16_t{0};
    };
    bench.toy.onRequest = [&] {
        if (written != 0 && bench.toy.now() > written + 1500 * microsPerMs) {
            bench.toy.registers[firstRegister] = 1;
            bench.toy.registers[firstRegister + 1] = 2;
        }
    };
    EXPECT_EQ(bench.send().step, Step::Good);
}

TEST(SendingRules, OfAControllerThatFitsInNothingTheFirstMarkIsTold) {
    Session_Bench bench(
        "[IDENTITY]\nREGISTER_1=30\nLOW_1=20\nHIGH_1=30\nREGISTER_2=18\nLOW_2=30000\nHIGH_2=50000\n");
    bench.set(1, 2, 2, "50");
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Plan plan = session.plan(look, {});
    bench.toy.registers[30] = 99;
    bench.toy.registers[18] = 1;
    const Session_End end = session.send(plan, look);
    EXPECT_EQ(end.step, Step::Wrong_Controller);
    EXPECT_EQ(end.why, "The controller isn't a PUMP: register 30 holds \"99\" instead of \"20 to 30\".");
    EXPECT_EQ(bench.toy.writes, 0);
}

// The line.

TEST(SendingRules, TheNewUnitNumberIsAskedBeforeTheFirstWriteAndTheLinkGoesLast) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 2, 2, "50");
    bench.set(1, 10, 2, "7");
    std::size_t firstWrite = 0;
    bench.toy.onRequest = [&] {
        if (bench.toy.writes == 1 && firstWrite == 0) firstWrite = bench.toy.askedUnits.size() - 1;
    };
    std::vector<std::int32_t> stored;
    bench.toy.onStore = [&](std::int32_t number, std::uint16_t value) {
        stored.push_back(number);
        if (number == 19) bench.toy.units = {value};
        return value;
    };
    EXPECT_EQ(bench.send(Chosen_Cells::these({{1, 2, 2}, {1, 10, 2}})).step, Step::Good);
    EXPECT_THAT(stored, ElementsAre(11, 19));
    EXPECT_EQ(bench.toy.askedUnits.at(firstWrite - 1), 7);
}

TEST(SendingRules, TheNewUnitNumberIsAskedAgainWhenThePortWasLostMeanwhile) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 10, 2, "7");
    bench.toy.units = {1, 7};
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Plan plan = session.plan(look, Chosen_Cells::these({{1, 10, 2}}));
    bench.toy.strikeAt(bench.toy.requests() + 1, Strike::Unplug_Before); // after the question who is there
    const Session_End end = session.send(plan, look);
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why, "Unit 7 answers already, so the controller can't get this number.");
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(SendingRules, ANewUnitNumberThatCouldntBeAskedIsntSent) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 10, 2, "7");
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Plan plan = session.plan(look, Chosen_Cells::these({{1, 10, 2}}));
    bench.toy.onRequest = [&] { // the port goes at each request for the new number
        if (bench.toy.askedUnits.back() == 7) bench.toy.strikeAt(bench.toy.requests(), Strike::Unplug_Before);
    };
    const Session_End end = session.send(plan, look);
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why, "Whether somebody answers to unit 7 already couldn't be asked: port lost");
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(SendingRules, AfterTheNewUnitNumberNewAndOldAreAskedInTurnForTenSeconds) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 10, 2, "7");
    std::size_t written = 0;
    bench.toy.onStore = [&](std::int32_t number, std::uint16_t value) {
        if (number == 19) {
            bench.toy.units = {};
            written = bench.toy.askedUnits.size();
        }
        return value;
    };
    const Session_End end = bench.send(Chosen_Cells::these({{1, 10, 2}}));
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_THAT(end.why, HasSubstr("answers neither in the new way nor in the old one"));
    const auto& asked = bench.toy.askedUnits;
    EXPECT_EQ(std::vector<std::int32_t>(asked.begin() + static_cast<std::ptrdiff_t>(written),
                                        asked.begin() + static_cast<std::ptrdiff_t>(written) + 4),
              (std::vector<std::int32_t>{7, 1, 7, 1}));
}

TEST(SendingRules, APortThatIsLostAfterTheNewUnitNumberIsOpenedAgain) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 10, 2, "7");
    bench.toy.onStore = [&](std::int32_t, std::uint16_t value) {
        bench.toy.units = {value};
        bench.toy.strikeAt(bench.toy.requests(), Strike::Unplug_Before); // the first question after it
        return value;
    };
    const Session_End end = bench.send(Chosen_Cells::these({{1, 10, 2}}));
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_LT(bench.toy.requests(), 20U) << "a lost port isn't asked without a pause";
}

TEST(SendingRules, ANumberThatCountsOnlyAfterSwitchingOffAndOnIsVerifiedUnderTheOldOne) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 10, 2, "7");
    const Session_End end = bench.send(Chosen_Cells::these({{1, 10, 2}}));
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_EQ(end.report.rows.at(0).answer,
              "the controller still answers in the old way: switch it off and on");
}

/// A controller whose baud rate is in register 18, and that is heard at that speed only.
struct Baud_Bench : Session_Bench {
    Baud_Bench() : Session_Bench(doubles::pumpIdentity + "LINK=baud:18\n") {
        set(1, 9, 2, "19200");
        toy.registers[18] = 9600;
        lineSettings = {9600, 'E', 8, 1};
        toy.settings = lineSettings;
        toy.onRequest = [this] { toy.units = toy.settings.baud == speed ? std::set{1} : std::set<int>{}; };
    }
    [[nodiscard]] Session_End sendBaud() { return send(Chosen_Cells::these({{1, 9, 2}})); }
    std::int32_t speed = 9600;
};

TEST(SendingRules, ANewBaudRateIsFollowedAndTheRestOfTheLineStays) {
    Baud_Bench bench;
    bench.toy.onStore = [&](std::int32_t, std::uint16_t value) { return bench.speed = value, value; };
    const Session_End end = bench.sendBaud();
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_EQ(end.report.rows.at(0).answer, "the controller answers in the new way");
    EXPECT_EQ(formatLineSettings(bench.toy.settings), "19200,e,8,1");
    EXPECT_THAT(*bench.runs.read(bench.newestRun(), journalFile), HasSubstr(R"("line":"19200,e,8,1")"));
}

TEST(SendingRules, ABaudRateThatCountsOnlyAfterSwitchingOffAndOnLeavesTheLineAsItWas) {
    Baud_Bench bench;
    const Session_End end = bench.sendBaud();
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_EQ(end.report.rows.at(0).answer,
              "the controller still answers in the old way: switch it off and on");
    EXPECT_EQ(formatLineSettings(bench.toy.settings), "9600,e,8,1");
}

TEST(SendingRules, AControllerHeardInNeitherWayLeavesTheLineAsItWas) {
    Baud_Bench bench;
    bench.toy.onStore = [&](std::int32_t, std::uint16_t value) { return bench.speed = 4800, value; };
    const Session_End end = bench.sendBaud();
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(end.why, "After the line was changed the controller answers neither in the new way nor in the "
                       "old one with the new value.");
    EXPECT_EQ(formatLineSettings(bench.toy.settings), "9600,e,8,1");
}

// Blocks.

/// A board, whose numbers 10 to 13 go out in one block.
const std::string boardTemplate = "[HARDWARE]\n"
                                  "CONTROLLER=R7702-16\n"
                                  "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=10-13\n"
                                  "[PORT_CONFIGURATION]\n"
                                  "HOLDINGREGISTERSBLOCK_1=10-13\n"
                                  "HOLDINGREQUESTBLOCK_1=CONFIG\n"
                                  "[CONFIGURATION_FIELDS]\n"
                                  "FIELD_1_DESC=Alarms\n"
                                  "FIELD_1_RC=4,2\n"
                                  "[FIELD_1_COLUMNS]\n"
                                  "COL_2_DESC=Value\n"
                                  "COL_2_TYPE=NUMERIC\n"
                                  "COL_2_MODIFIABLE=YES\n"
                                  "COL_2_MDBUSREQUEST=CONFIG\n"
                                  "[FIELD_1_CONFIGURATION]\n"
                                  "ROWADDRESS_1=,10\n"
                                  "ROWADDRESS_2=,11\n"
                                  "ROWADDRESS_3=,12\n"
                                  "ROWADDRESS_4=,13\n"
                                  "[IDENTITY]\nREGISTER_1=13\nLOW_1=0\nHIGH_1=1000\n";

struct Board_Bench {
    explicit Board_Bench(const std::string& identity = "") {
        bench.readTemplate(boardTemplate + identity);
        section = readIdentity(boardTemplate + identity);
        toy.registers = {{10, 1}, {11, 2}, {12, 3}, {13, 4}};
        for (std::int32_t row = 1; row <= 4; ++row)
            bench.cell(1, row, 2).Value = std::to_string(row);
        bench.cell(1, 2, 2).Value = "20";
    }
    [[nodiscard]] Session session() {
        return Session({toy, runs, clock, {}, {}, {}}, {bench.document,
                                                        section,
                                                        {"/t", "aa"},
                                                        {"/d", "bb"},
                                                        "controller.R7702-16",
                                                        "line",
                                                        1,
                                                        {},
                                                        2,
                                                        "test"});
    }

    zorvane::doubles::Reading_Bench bench;
    Identity_Section section;
    Toy_Controller toy;
    Memory_Runs runs;
    Standing_Clock clock;
};

TEST(SendingRules, ABlockGoesOutInOneWriteWithTheControllersOwnRest) {
    Board_Bench bench;
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Session_End end = session.send(session.plan(look, {}), look);
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_EQ(bench.toy.writes, 1);
    EXPECT_EQ(bench.toy.registers,
              (std::map<std::int32_t, std::uint16_t>{{10, 1}, {11, 20}, {12, 3}, {13, 4}}));
}

TEST(SendingRules, ABlockWithAWriteOnlyRegisterGoesOutWithTheRestThatCanBeRead) {
    Board_Bench bench("WRITEONLY=11\n");
    bench.toy.unreadable = {11};
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Session_End end = session.send(session.plan(look, {}), look);
    ASSERT_EQ(end.report.rows.size(), 1U);
    EXPECT_EQ(end.report.rows.at(0).state, Value_State::Unknown);
    EXPECT_EQ(bench.toy.writes, 1);
    EXPECT_EQ(bench.toy.registers,
              (std::map<std::int32_t, std::uint16_t>{{10, 1}, {11, 20}, {12, 3}, {13, 4}}));
}

TEST(SendingRules, ABlockThatOnlyKeepsWhatStopsAProcessGoesOutLastAsWell) {
    Board_Bench bench("LAST=12\n");
    Session session = bench.session();
    const Plan plan = session.plan(session.look(), {});
    ASSERT_EQ(plan.writes.size(), 1U);
    EXPECT_EQ(plan.writes.at(0).cells, (std::vector<Cell_Place>{{1, 2, 2}}));
    EXPECT_EQ(plan.writes.at(0).stage, Stage::Last);
}

TEST(SendingRules, ABlockOfWhichAnotherRegisterChangedSinceThePlanIsntSent) {
    Board_Bench bench;
    Session session = bench.session();
    const Controller_Look look = session.look();
    bench.toy.registers[12] = 33;
    const Session_End end = session.send(session.plan(look, {}), look);
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(end.report.counts.of(Value_State::Not_Sent), 1U);
    EXPECT_EQ(end.report.rows.at(0).answer, "register 12 of its block was 3 and is 33 now");
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(SendingRules, ABlockOfWhichAnotherRegisterChangedSinceTheKeptPlanIsntSent) {
    for (const auto& [number, was] : std::map<std::int32_t, std::string>{{10, "1"}, {12, "3"}, {13, "4"}}) {
        Board_Bench bench;
        Session session = bench.session();
        const Plan kept = session.plan(session.look(), {});
        bench.toy.registers[number] = 33;
        const Controller_Look look = session.look();
        Plan plan = session.plan(look, Chosen_Cells::these({{1, 2, 2}}));
        plan.planned = kept.before;
        const Session_End end = session.send(plan, look);
        EXPECT_EQ(end.step, Step::Incomplete);
        EXPECT_EQ(end.report.rows.at(0).answer,
                  "register " + std::to_string(number) + " of its block was " + was + " and is 33 now");
        EXPECT_EQ(bench.toy.writes, 0);
    }
}

TEST(SendingRules, ABlockThatCantBeReadJustBeforeItsWriteIsntSent) {
    Board_Bench bench;
    Session session = bench.session();
    const Controller_Look look = session.look();
    int requests = 0; // who is there, then the block
    bench.toy.onRequest = [&] {
        bench.toy.unreadable.clear();
        if (++requests == 2) bench.toy.unreadable = {12};
    };
    const Session_End end = session.send(session.plan(look, {}), look);
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(end.report.counts.of(Value_State::Not_Sent), 1U);
    EXPECT_EQ(end.report.rows.at(0).answer, "its registers couldn't be read just before: exception 2");
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(SendingRules, ABlockWithARegisterThatChangesByItselfIsntSent) {
    Board_Bench bench;
    bench.toy.onRequest = [&] { ++bench.toy.registers[10]; };
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Session_End end = session.send(session.plan(look, Chosen_Cells::these({{1, 2, 2}})), look);
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_THAT(end.report.rows.at(0).answer, HasSubstr("register 10 of its block was "));
    EXPECT_EQ(bench.toy.writes, 0);
}

} // namespace
} // namespace zorvane::commission
