// SPDX-License-Identifier: MIT
// What a run left, whose controller it was, and when its values count as put back.
#include "commission/testing/session_bench.h"

#include <gmock/gmock.h>

namespace zorvane::commission {
namespace {

using doubles::pumpIdentity;
using doubles::Session_Bench;

Run_State stateOf(const Session_Bench& bench, const std::string& run) {
    return readRun(bench.runs, run).value().state;
}

Plan_Write wholeRegister(std::int32_t number, std::uint16_t value) {
    Plan_Write write;
    write.address = number;
    write.values = {value};
    write.parts = {Part::Whole};
    return write;
}

TEST(Taking_Back, WhatWasNeverReadNorSentIsntSaidToBeZero) {
    Kept_Run run;
    run.paper.before = {{11, 5}};
    compare::Controller_Registers now;
    now.take(11, {5, 0});
    const auto rows = leftRows(run, {wholeRegister(11, 50), wholeRegister(12, 7)}, now);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows.at(0).left, 5);
    EXPECT_EQ(rows.at(0).sign, Left_Sign::As_Left);
    EXPECT_EQ(rows.at(1).left, std::nullopt);
    EXPECT_EQ(rows.at(1).sign, Left_Sign::Not_Read);
}

TEST(Taking_Back, WhatWasRefusedIsLeftAsItWasBefore) {
    Kept_Run run;
    run.paper.before = {{11, 5}, {12, 6}};
    run.journal.records = {
        {{"event", "write"}, {"write", 0}, {"address", 11}, {"values", {50}}},
        {{"event", "answer"}, {"write", 0}, {"end", "refused"}},
        {{"event", "write"}, {"write", 1}, {"address", 12}, {"values", {60}}},
        {{"event", "answer"}, {"write", 1}, {"end", "no answer"}},
    };
    compare::Controller_Registers now;
    now.take(11, {5, 6});
    const auto rows = leftRows(run, {wholeRegister(11, 50), wholeRegister(12, 60)}, now);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows.at(0).left, 5);
    EXPECT_EQ(rows.at(0).sign, Left_Sign::As_Left) << "nothing changed since";
    EXPECT_EQ(rows.at(1).left, 60);
    EXPECT_EQ(rows.at(1).sign, Left_Sign::Changed);
    run.after = {{11, 7}};
    EXPECT_EQ(leftRows(run, {wholeRegister(11, 50)}, now).at(0).left, 7) << "it was read";
}

TEST(Taking_Back, ARunIsOfTheControllerWithItsSerialNumber) {
    const Identity_Section section = readIdentity("[IDENTITY]\nSERIAL=18\n");
    Kept_Run run;
    run.paper.identity = {{"serial", "A-17"}};
    compare::Identity identity;
    EXPECT_EQ(anotherController(run, section, identity), "") << "it wasn't read";
    identity.serial = "A-17";
    EXPECT_EQ(anotherController(run, section, identity), "");
    identity.serial = "A-18";
    EXPECT_EQ(
        anotherController(run, section, identity),
        "Another controller answers: its serial number is \"A-18\", and that of the run's was \"A-17\".");
    run.paper.writes = {wholeRegister(18, 5)};
    EXPECT_EQ(anotherController(run, section, identity), "") << "the run wrote it";
}

TEST(Taking_Back, ARunThatWentOnUnderAnotherNumberIsLookedForThere) {
    Kept_Run run;
    run.paper.unit = 1;
    EXPECT_EQ(unitOf(run), 1);
    run.journal.records = {{{"event", "begin"}, {"unit", 1}}, {{"event", "line"}, {"unit", 5}}};
    EXPECT_EQ(unitOf(run), 5);
    run.journal.records.push_back({{"event", "begin"}, {"unit", 7}});
    EXPECT_EQ(unitOf(run), 7);
}

TEST(Taking_Back, AWriteOfTheSerialNumberIsNoOtherController) {
    Session_Bench bench(pumpIdentity + "SERIAL=18\n");
    bench.set(1, 9, 2, "41000");
    const Session_End end = bench.send();
    EXPECT_EQ(end.step, Step::Good) << end.why;
    EXPECT_EQ(end.report.counts.of(Value_State::Verified), 1U);
}

TEST(Taking_Back, ARestorationThatPutsNothingBackRestoresNothing) {
    Session_Bench bench(pumpIdentity + "WRITEONLY=12\n");
    bench.toy.unreadable = {12};
    bench.set(1, 3, 2, "0:45");
    const std::string run = bench.send().run;
    EXPECT_EQ(bench.restore(run).step, Step::Incomplete);
    EXPECT_EQ(stateOf(bench, run), Run_State::Finished);
}

TEST(Taking_Back, ARestorationOfWhichAValueIsRefusedRestoresNothing) {
    Session_Bench bench(pumpIdentity + "WRITEONLY=12\n");
    bench.toy.unreadable = {12};
    bench.set(1, 2, 2, "50");
    bench.set(1, 3, 2, "0:45");
    const std::string run = bench.send().run;
    bench.toy.refusing = {11};
    EXPECT_EQ(bench.restore(run).step, Step::Incomplete);
    EXPECT_EQ(stateOf(bench, run), Run_State::Finished);
    bench.toy.refusing = {};
    EXPECT_EQ(bench.restore(run).step, Step::Incomplete) << "12 was never read";
    EXPECT_EQ(stateOf(bench, run), Run_State::Restored);
}

TEST(Taking_Back, ARestoredRunThatGoesOnIsFinishedAgain) {
    Session_Bench bench;
    bench.changeMuch();
    const std::string run = bench.send().run;
    EXPECT_EQ(bench.restore(run).step, Step::Good);
    EXPECT_EQ(stateOf(bench, run), Run_State::Restored);
    Session session = bench.session();
    EXPECT_EQ(session.resume(run, *readRun(bench.runs, run), session.look()).step, Step::Good);
    EXPECT_EQ(bench.toy.registers.at(11), 50);
    EXPECT_EQ(stateOf(bench, run), Run_State::Finished);
}

TEST(Taking_Back, ARestoredRunThatCantBeMarkedAsGoingOnSendsNothing) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    const std::string run = bench.send().run;
    EXPECT_EQ(bench.restore(run).step, Step::Good);
    bench.runs.refused = restoredFile;
    const int writes = bench.toy.writes;
    Session session = bench.session();
    const Session_End end = session.resume(run, *readRun(bench.runs, run), session.look());
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why,
              "The run " + run + " can't be marked as going on: Permission denied. Nothing was sent.");
    EXPECT_EQ(bench.toy.writes, writes);
    EXPECT_EQ(stateOf(bench, run), Run_State::Restored);
}

TEST(Taking_Back, WhatCantBeReadNowIsNeitherGoneOnWithNorTakenBack) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    const std::string run = bench.send().run;
    const int writes = bench.toy.writes;
    bench.toy.unreadable = {11};
    for (const Session_End& end : {bench.restore(run), bench.resume()}) {
        EXPECT_EQ(end.step, Step::Cant_Tell);
        EXPECT_EQ(end.why, "Nothing is sent, since these registers couldn't be read: 11.");
    }
    EXPECT_EQ(bench.toy.writes, writes);
}

TEST(Taking_Back, AUnitNumberThatNobodyCanAskIsntSent) {
    for (const char* const number : {"0", "248", "300", "-1"}) {
        Session_Bench bench(pumpIdentity + "LINK=unit:19\n");
        bench.set(1, 10, 2, number);
        const Session_End end = bench.send(Chosen_Cells({{1, 10, 2}}));
        EXPECT_EQ(end.step, Step::Incomplete);
        ASSERT_EQ(end.report.rows.size(), 1U);
        EXPECT_EQ(end.report.rows.at(0).state, Value_State::Not_Sent);
        EXPECT_EQ(end.report.rows.at(0).answer,
                  std::string(number) + " is no unit number: they go from 1 to 247");
        EXPECT_EQ(bench.toy.writes, 0);
    }
}

TEST(Taking_Back, AKeptPlanThatWasChangedByHandIsStale) {
    Session_Bench bench;
    bench.changeMuch();
    Session session = bench.session();
    const Controller_Look look = session.look();
    const Plan plan = session.plan(look, {});
    auto paper = parsePaper(paperJson(session.paper(plan, look)).dump()).value();
    ASSERT_TRUE(completeWrites(paper.writes, bench.bench.document, bench.section));
    EXPECT_EQ(Session::checkWrites(paper, plan).step, Step::Good);
    for (Plan_Write& write : paper.writes)
        if (write.address == 11) write.values = {51};
    const Session_End end = Session::checkWrites(paper, plan);
    EXPECT_EQ(end.step, Step::Stale);
    EXPECT_EQ(end.why, "The plan writes 51 to register 11, and its document has 50 for it. Make a new plan.");
    std::erase_if(paper.writes, [](const Plan_Write& write) { return write.address == 11; });
    EXPECT_EQ(Session::checkWrites(paper, plan).why,
              "The plan writes nothing to register 11, and its document has 50 for it. Make a new plan.");
}

TEST(Taking_Back, APlanWhoseWriteNamesACellOfOtherRegistersDoesntFitTheTemplate) {
    Session_Bench bench;
    bench.changeMuch();
    Session session = bench.session();
    const Plan plan = session.plan(session.look(), {});
    std::vector<Plan_Write> writes = plan.writes;
    EXPECT_TRUE(completeWrites(writes, bench.bench.document, bench.section));
    ASSERT_GT(writes.size(), 1U);
    writes[0].cells.push_back(writes[1].cells[0]);
    EXPECT_FALSE(completeWrites(writes, bench.bench.document, bench.section));
}

} // namespace
} // namespace zorvane::commission
