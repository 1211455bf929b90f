// SPDX-License-Identifier: MIT
// A document and its controller in memory: what is sent, what came of it, and what is said.
#include "commission/testing/session_bench.h"

#include <gmock/gmock.h>

#include <utility>

namespace zorvane::commission {
namespace {

using doubles::Session_Bench;
using Strike = doubles::Toy_Controller::Strike;
using ::testing::HasSubstr;

std::vector<std::string> statesOf(const Session_End& end) {
    std::vector<std::string> states;
    for (const Sent_Row& row : end.report.rows)
        states.push_back(row.address + " " + std::string(valueStateWord(row.state)));
    return states;
}

TEST(Session, SendsWhatDiffersAndNothingElse) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Good);
    EXPECT_EQ(statesOf(end), (std::vector<std::string>{"11 verified"}));
    EXPECT_EQ(bench.toy.registers.at(11), 50);
    EXPECT_EQ(bench.toy.writes, 1);
    EXPECT_EQ(end.requests.writes, 1U);
    EXPECT_EQ(end.run, "20261122-084005-PUMP-1-1");
}

TEST(Session, ASecondSendHasNothingToWrite) {
    Session_Bench bench;
    bench.changeMuch();
    EXPECT_EQ(bench.send().step, Step::Good);
    const int writes = bench.toy.writes;
    const Session_End again = bench.send();
    EXPECT_EQ(again.step, Step::Good);
    EXPECT_EQ(again.run, "");
    EXPECT_EQ(bench.toy.writes, writes);
}

TEST(Session, TheOtherHalfAndTheOtherPartOfATimeAreTheControllersOwn) {
    Session_Bench bench;
    bench.toy.registers[16] = 0x0732;
    bench.toy.registers[17] = 2 * 60 + 44;
    bench.set(1, 5, 2, "9");
    bench.set(1, 7, 2, "3");
    const Session_End end = bench.send(Chosen_Cells({{1, 5, 2}, {1, 7, 2}}));
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_EQ(bench.toy.registers.at(16), 0x0932);
    EXPECT_EQ(bench.toy.registers.at(17), 3 * 60 + 44);
}

TEST(Session, HalvesOfOneRegisterGoOutInOneWrite) {
    Session_Bench bench;
    bench.set(1, 5, 2, "9");
    bench.set(1, 6, 2, "10");
    const Session_End end = bench.send();
    EXPECT_EQ(statesOf(end), (std::vector<std::string>{"16/HI verified", "16/LO verified"}));
    EXPECT_EQ(bench.toy.registers.at(16), 0x090A);
    EXPECT_EQ(bench.toy.writes, 1);
}

TEST(Session, ARegisterKeptBackFromDownloadsIsntSent) {
    Session_Bench bench;
    bench.set(1, 10, 2, "7");
    EXPECT_EQ(bench.send().step, Step::Good);
    EXPECT_EQ(bench.send(Chosen_Cells({{1, 10, 2}})).step, Step::Good);
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Session, ARefusalIsARefusal) {
    Session_Bench bench;
    bench.changeMuch();
    bench.toy.refusing = {11};
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(end.report.counts.of(Value_State::Refused), 1U);
    EXPECT_EQ(end.report.counts.of(Value_State::Verified), 7U);
    EXPECT_EQ(end.report.rows.at(1).answer, "exception 3");
}

TEST(Session, WhatIsAcknowledgedAndNotKeptIsStoredOtherwise) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.toy.onStore = [](std::int32_t, std::uint16_t) { return std::uint16_t{40}; };
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Incomplete);
    const Sent_Row& row = end.report.rows.at(0);
    EXPECT_EQ(row.state, Value_State::Stored_Otherwise);
    EXPECT_EQ(row.sent, (Known_Registers{50}));
    EXPECT_EQ(row.readBack, (Known_Registers{40}));
}

TEST(Session, AControllerThatIsWaitedForIsToldOnceAndTheSendGoesOnWhenItIsBack) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Plan plan = session.plan(look, {});
    bench.toy.strikeAt(bench.toy.requests() + 1, Strike::Unplug_Before); // the write, after the question
    EXPECT_EQ(session.send(plan, look).step, Step::Good);
    EXPECT_EQ(bench.waited, (std::vector<std::string>{"The controller doesn't answer: port lost."}));
}

TEST(Session, AValueOutsideItsLimitsNeedsItsName) {
    Session_Bench bench;
    bench.set(1, 2, 2, "95");
    bench.stray = {{{1, 2, 2}, "its value 95 is outside its limits"}};
    const Session_End held = bench.send();
    EXPECT_EQ(held.step, Step::Incomplete);
    EXPECT_EQ(statesOf(held), (std::vector<std::string>{"11 not_sent"}));
    EXPECT_EQ(held.report.rows.at(0).answer, "its value 95 is outside its limits");
    EXPECT_EQ(held.report.rows.at(0).before, (Known_Registers{65531}))
        << "it was read, though nothing is sent";
    EXPECT_EQ(bench.toy.writes, 0);
    EXPECT_EQ(bench.send(Chosen_Cells({{1, 2, 0}})).step, Step::Good);
    EXPECT_EQ(bench.toy.registers.at(11), 95);
}

TEST(Session, ANamedBlankWhoseRegisterHoldsZeroIsDone) {
    Session_Bench bench;
    bench.set(1, 2, 2, "");
    bench.toy.registers[11] = 0;
    const Session_End there = bench.send(Chosen_Cells({{1, 2, 2}}));
    EXPECT_EQ(there.step, Step::Good);
    EXPECT_EQ(there.report.rows.size(), 0U);
    EXPECT_EQ(bench.toy.writes, 0);
    bench.toy.registers[11] = 7;
    EXPECT_EQ(statesOf(bench.send(Chosen_Cells({{1, 2, 2}}))), (std::vector<std::string>{"11 verified"}));
    EXPECT_EQ(bench.toy.registers.at(11), 0);
}

TEST(Session, ASharedTimeBelowZeroIsReplacedAsAWholeOrNotAtAll) {
    Session_Bench bench;
    bench.toy.registers[17] = 55226; // -171 minutes and -50 seconds
    bench.set(1, 8, 2, "12");
    const Session_End half = bench.send(Chosen_Cells({{1, 8, 2}}));
    EXPECT_EQ(statesOf(half), (std::vector<std::string>{"17 not_sent"}));
    EXPECT_EQ(half.report.rows.at(0).answer, "its register holds a time below 0");
    EXPECT_EQ(bench.toy.writes, 0);
    bench.set(1, 7, 2, "5");
    const Session_End whole = bench.send(Chosen_Cells({{1, 7, 2}, {1, 8, 2}}));
    EXPECT_EQ(statesOf(whole), (std::vector<std::string>{"17 verified", "17 verified"}));
    EXPECT_EQ(bench.toy.registers.at(17), 5 * 60 + 12);
}

TEST(Session, MinutesThatWouldReadBackBelowZeroArentSent) {
    Session_Bench bench;
    bench.set(1, 7, 2, "546");
    const Session_End end = bench.send(Chosen_Cells({{1, 7, 2}}));
    ASSERT_EQ(statesOf(end), (std::vector<std::string>{"17 not_sent"}));
    EXPECT_EQ(end.report.rows.at(0).answer, "minutes go from 0 to 545");
    bench.set(1, 7, 2, "545");
    EXPECT_EQ(statesOf(bench.send(Chosen_Cells({{1, 7, 2}}))), (std::vector<std::string>{"17 verified"}));
}

TEST(Session, AHalfOfARegisterTakes255AndNoMore) {
    Session_Bench bench;
    bench.set(1, 5, 2, "256");
    const Session_End held = bench.send();
    ASSERT_EQ(statesOf(held), (std::vector<std::string>{"16/HI not_sent"}));
    EXPECT_EQ(held.report.rows.at(0).answer, "half a register holds 0 to 255");
    EXPECT_EQ(bench.toy.writes, 0);
    bench.set(1, 5, 2, "255");
    EXPECT_EQ(statesOf(bench.send()), (std::vector<std::string>{"16/HI verified"}));
    EXPECT_EQ(bench.toy.registers.at(16), 0xFF08);
}

TEST(Session, ATemplateWithoutAReadableRegisterSaysSo) {
    Session_Bench bench("[IDENTITY]\nWRITEONLY=10-30\n");
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why, "The template has no register that can be read.");
    EXPECT_EQ(bench.toy.requests(), 0);
}

TEST(Session, AnUnreadBlockStopsTheSend) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    for (std::int32_t number = 10; number <= 20; ++number)
        bench.toy.unreadable.insert(number);
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Cant_Tell);
    EXPECT_THAT(end.why, HasSubstr("10-18, 20"));
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Session, ATextThatNoRegisterHoldsStopsThePlan) {
    Session_Bench bench;
    bench.set(1, 4, 2, std::string(1, static_cast<char>(196)) + "RZTE");
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_THAT(end.why, HasSubstr("field 1, row 4, column 2"));
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Session, AnotherControllerStopsBeforeTheFirstWrite) {
    Session_Bench bench;
    bench.changeMuch();
    bench.toy.registers[30] = 99;
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Wrong_Controller);
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Session, ABlockThatTheControllerDoesntHaveIsToldAsSuch) {
    Session_Bench bench("[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_3=40-41\nHOLDINGREQUESTBLOCK_3=CONFIG\n"
                        "HOLDINGREGISTERSBLOCK_4=50-51\nHOLDINGREQUESTBLOCK_4=CONFIG\n"
                        "HOLDINGREGISTERSBLOCK_5=60-61\nHOLDINGREQUESTBLOCK_5=CONFIG\n");
    EXPECT_EQ(
        bench.send().why,
        "The controller isn't a PUMP: register 40-41 can't be read, Illegal data address (exception 2).");
}

const std::string objectsIdentity = "[IDENTITY]\nOBJECTS=YES\nOBJECT_1=PUMP\n";

TEST(Session, AControllerIsToldByItsObjectsToo) {
    Session_Bench bench(objectsIdentity);
    bench.changeMuch();
    bench.toy.objects = {{0, "ACME"}, {1, "FAN"}};
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Wrong_Controller);
    EXPECT_EQ(end.why, "The controller isn't a PUMP: object 1 holds \"FAN\" and not \"PUMP\".");
    EXPECT_EQ(bench.toy.writes, 0);
    bench.toy.objects = {{1, "Pump"}};
    EXPECT_EQ(bench.send().step, Step::Good);
}

TEST(Session, OneWithOtherObjectsInItsPlaceStopsTheSend) {
    for (const auto& [objects, why] :
         {std::pair(std::map<std::int32_t, std::string>{{1, "FAN"}},
                    "object 1 holds \"FAN\" instead of \"PUMP\""),
          std::pair(std::map<std::int32_t, std::string>{},
                    "object 1 holds \"Illegal function (exception 1)\" instead of \"PUMP\"")}) {
        Session_Bench bench(objectsIdentity);
        bench.changeMuch();
        bench.toy.objects = {{1, "PUMP"}};
        bench.toy.other = bench.toy.registers;
        bench.toy.otherObjects = objects;
        Session session = bench.session();
        const Controller_Look look = session.look();
        ASSERT_EQ(look.step, Step::Good);
        bench.toy.strikeAt(bench.toy.requests(), Strike::Exchange);
        const Session_End end = session.send(session.plan(look, {}), look);
        EXPECT_EQ(end.step, Step::Wrong_Controller);
        EXPECT_THAT(end.why, HasSubstr(why));
        EXPECT_EQ(bench.toy.writesToOther, 0);
    }
}

TEST(Session, OneThatKnowsNoObjectsIsAskedOnceAndTheSendGoesOn) {
    Session_Bench bench(objectsIdentity + "REGISTER_1=30\nLOW_1=20\nHIGH_1=30\n");
    bench.changeMuch();
    Session session = bench.session();
    const Controller_Look look = session.look();
    EXPECT_EQ(look.identity.verdict, compare::Verdict::Cant_Tell);
    EXPECT_EQ(session.send(session.plan(look, {}), look).step, Step::Good);
    EXPECT_EQ(bench.toy.objectRequests, 1);
}

TEST(Session, NoFolderNoWrite) {
    Session_Bench bench;
    bench.changeMuch();
    bench.runs.full = true;
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why,
              "No run folder can be made in /state/runs: No space left on device. Nothing was sent.");
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Session, ADiskThatFillsUpStopsBeforeTheNextWrite) {
    Session_Bench bench;
    bench.changeMuch();
    int lines = 0;
    bench.runs.onLine = [&](std::string_view) { bench.runs.full = ++lines >= 6; };
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_THAT(end.why, HasSubstr("No space left on device"));
    EXPECT_LT(bench.toy.writes, 7);
}

TEST(Session, WriteOnlyRegistersEndUnknown) {
    Session_Bench bench(doubles::pumpIdentity + "WRITEONLY=12\n");
    bench.toy.unreadable = {12};
    bench.set(1, 3, 2, "0:45");
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(statesOf(end), (std::vector<std::string>{"12 unknown"}));
    EXPECT_EQ(bench.toy.registers.at(12), 45);
}

TEST(Session, AWriteOnlyRegisterThatWentOutIsntSentAgainWhenTheRunGoesOn) {
    Session_Bench bench(doubles::pumpIdentity + "WRITEONLY=12\n");
    bench.toy.unreadable = {12};
    bench.set(1, 3, 2, "0:45");
    bench.set(1, 9, 2, "41000");
    int taken = 0;
    bool killed = false;
    bench.toy.onStore = [&](std::int32_t number, std::uint16_t value) {
        if (number == 12) ++taken;
        return value;
    };
    bench.toy.onRequest = [&] {
        if (taken == 1 && !std::exchange(killed, true)) throw doubles::Killed{};
    };
    EXPECT_THROW((void)bench.send(), doubles::Killed);
    EXPECT_EQ(bench.resume().step, Step::Incomplete);
    EXPECT_EQ(bench.toy.registers.at(18), 41000) << "the rest was sent";
    EXPECT_EQ(taken, 1);
}

TEST(Session, ATextOfWhichOnlyAPartIsWriteOnlyNeedsItsOtherRegisters) {
    Session_Bench bench(doubles::pumpIdentity + "WRITEONLY=14\n");
    bench.toy.unreadable = {14, 15};
    bench.set(1, 4, 2, "FAN 2");
    const Session_End end = bench.send(Chosen_Cells({{1, 4, 2}}));
    EXPECT_EQ(end.step, Step::Cant_Tell);
    EXPECT_THAT(end.why, HasSubstr("a write needs them: 15. "));
    EXPECT_EQ(bench.toy.writes, 0);
    bench.toy.unreadable = {14};
    EXPECT_EQ(statesOf(bench.send()), (std::vector<std::string>{"13-15 unknown"}));
}

TEST(Session, WhatStopsAProcessGoesOutLast) {
    Session_Bench bench(doubles::pumpIdentity + "LAST=10-11\n");
    bench.changeMuch();
    Session session = bench.session();
    const Plan plan = session.plan(session.look(), {});
    ASSERT_EQ(plan.writes.size(), 8U);
    EXPECT_EQ(plan.writes.at(6).stage, Stage::Last);
    EXPECT_EQ(plan.writes.at(7).stage, Stage::Last);
}

TEST(Session, ATakenUnitNumberStopsBeforeTheFirstWrite) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 2, 2, "50");
    bench.set(1, 10, 2, "7");
    bench.toy.units = {1, 7};
    const Session_End end = bench.send(Chosen_Cells({{1, 2, 2}, {1, 10, 2}}));
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why, "Unit 7 answers already, so the controller can't get this number.");
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Session, AnUnnamedUnitNumberStays) {
    Session_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n");
    bench.set(1, 10, 2, "7");
    EXPECT_EQ(bench.send().step, Step::Good);
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Session, RestoreBringsBackWhatWasThereAndMarksTheRun) {
    Session_Bench bench;
    const auto before = bench.toy.registers;
    bench.changeMuch();
    const std::string run = bench.send().run;
    const Session_End end = bench.restore(run);
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_EQ(bench.toy.registers, before);
    const auto runs = listRuns(bench.runs);
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs.at(1).state, Run_State::Restored);
    EXPECT_EQ(runs.at(0).head.restores, run);
}

TEST(Session, ThePlanOfARunTellsWhoWasThereAndOnWhichLine) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    const std::string run = bench.send().run;
    bench.portName = "other";
    bench.lineSettings.baud = 19200;
    EXPECT_EQ(bench.restore(run).step, Step::Good);
    const Plan_Paper sent = parsePaper(bench.runs.runs.at(run).at("plan.json")).value();
    EXPECT_EQ(sent.identity,
              Json::parse(R"({"verdict":"is","model":"PUMP","unit":1,"serial":null,"firmware":null,
        "evidence":[{"register":"30","what":"bearing","expected":"20 to 30","found":"21","result":"fits"}]})"));
    EXPECT_EQ(sent.port + " " + sent.settings, "line 9600,n,8,1");
    const Plan_Paper back = parsePaper(bench.runs.runs.at(bench.newestRun()).at("plan.json")).value();
    EXPECT_EQ(back.identity.at("verdict"), "is");
    EXPECT_EQ(back.port + " " + back.settings, "other 19200,n,8,1");
    EXPECT_EQ(back.run, run);
    EXPECT_EQ(back.before, (std::map<std::int32_t, std::uint16_t>{{11, 50}}));
}

TEST(Session, ARunTellsByWhichAdapterItWentOut) {
    Session_Bench bench;
    bench.adapter = "FT232R, serial number A50285BI";
    bench.set(1, 2, 2, "50");
    const std::string run = bench.send().run;
    EXPECT_EQ(readRun(bench.runs, run)->head.adapter, "FT232R, serial number A50285BI");
}

TEST(Session, ARegisterThatSomebodyElseChangedStopsTheRestoration) {
    Session_Bench bench;
    bench.changeMuch();
    const std::string run = bench.send().run;
    bench.toy.registers[11] = 77;
    const int writes = bench.toy.writes;
    const Session_End end = bench.restore(run);
    EXPECT_EQ(end.step, Step::Stale);
    EXPECT_THAT(end.why, HasSubstr("11 (was 65531, left 50, now 77)"));
    EXPECT_EQ(bench.toy.writes, writes);
}

TEST(Session, AKeptPlanIsDoneOnceAndStaleOnceARegisterIsOtherwise) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    Session session = bench.session();
    const Controller_Look look = session.look();
    const auto paper = parsePaper(paperJson(session.paper(session.plan(look, {}), look)).dump());
    ASSERT_TRUE(paper);
    auto writes = paper->writes;
    ASSERT_TRUE(completeWrites(writes, bench.bench.document, bench.section));
    EXPECT_EQ(session.checkPaper(*paper).step, Step::Good);
    bench.toy.registers[11] = 50;
    EXPECT_EQ(session.checkRegisters(*paper, writes, session.look()).step, Step::Good);
    bench.toy.registers[11] = 77;
    EXPECT_EQ(session.checkRegisters(*paper, writes, session.look()).step, Step::Stale);
}

TEST(Session, AStalePlanListsItsRows) {
    Session_Bench bench;
    bench.changeMuch();
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Plan plan = session.plan(look, {});
    bench.toy.registers[11] = 77;
    const Session_End end = session.checkRegisters(session.paper(plan, look), plan.writes, session.look());
    EXPECT_EQ(end.step, Step::Stale);
    EXPECT_EQ(end.why, "The plan is stale. Nothing is written, since these registers hold neither what was "
                       "there nor what the plan writes: 11 (was 65531, now 77).");
    EXPECT_EQ(statesOf(end), (std::vector<std::string>{"11 not_sent"}));
    EXPECT_EQ(end.report.rows.at(0).before, (Known_Registers{65531}));
    EXPECT_EQ(end.report.rows.at(0).answer,
              "register 11 holds 77, which is neither what was there nor what was to be left");
    EXPECT_EQ(endJson(end).at("counts").at("not_sent"), 1);
}

TEST(Session, AStaleRunListsItsRows) {
    Session_Bench bench;
    bench.changeMuch();
    const std::string run = bench.send().run;
    bench.toy.registers[11] = 77;
    EXPECT_EQ(statesOf(bench.restore(run)), (std::vector<std::string>{"11 not_sent"}));
    EXPECT_EQ(statesOf(bench.resume()), (std::vector<std::string>{"11 not_sent"}));
}

TEST(Session, CountsAddUpInEveryObject) {
    Session_Bench bench;
    bench.changeMuch();
    bench.toy.refusing = {11, 12};
    const Json json = endJson(bench.send());
    const Json& counts = json.at("counts");
    const int sum = counts.at("verified").get<int>() + counts.at("refused").get<int>() +
                    counts.at("stored_otherwise").get<int>() + counts.at("unknown").get<int>() +
                    counts.at("not_sent").get<int>();
    EXPECT_EQ(sum, counts.at("rows").get<int>());
    EXPECT_EQ(json.at("rows").size(), counts.at("rows").get<std::size_t>());
}

TEST(Session, EachRowHasItsRegistersBeforeAsSentAndAsReadBack) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.set(1, 4, 2, "FAN 2");
    bench.set(1, 5, 2, "256");
    const Json end = endJson(bench.send());
    std::vector<std::string> rows;
    for (const Json& row : end.at("rows"))
        rows.push_back(row.at("register").get<std::string>() + " " + row.at("before").dump() + " " +
                       row.at("sent").dump() + " " + row.at("read_back").dump());
    EXPECT_EQ(rows, (std::vector<std::string>{
                        "11 65531 50 50",
                        "13-15 [20565,19792,8224] [17985,20000,12832] [17985,20000,12832]",
                        "16/HI 1800 null null",
                    }));
}

} // namespace
} // namespace zorvane::commission
