// SPDX-License-Identifier: MIT
#include "commission/desk/desk_rows.h"
#include "commission/testing/session_bench.h"

#include <gmock/gmock.h>

namespace zorvane::commission {
namespace {

using doubles::Session_Bench;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::SizeIs;

/// "[x] Level 11: '-5' to '50' (a note)": [x] is ticked, [ ] isn't, and [-] can't be.
std::string textOf(const Desk_Row& row) {
    const std::string box = !row.tickable ? "[-] " : row.ticked ? "[x] " : "[ ] ";
    return box + row.name + " " + row.address + ": '" + row.present + "' to '" + row.wanted + "'" +
           (row.note.empty() ? "" : " (" + row.note + ")");
}

std::vector<std::string> textsOf(const std::vector<Desk_Row>& rows) {
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const Desk_Row& row : rows)
        texts.push_back(textOf(row));
    return texts;
}

class Desk_Rows : public ::testing::Test {
  protected:
    [[nodiscard]] std::vector<Desk_Row> rowsToSend(Session_Bench& bench) const {
        Session session = bench.session();
        const Controller_Look look = session.look();
        return sendRows({bench.bench.document, bench.section}, session.plan(look, {}),
                        session.plan(look, Chosen_Cells::allByName()));
    }
};

TEST_F(Desk_Rows, OfASendAreWhatDiffersWithWhatSomebodyShouldKnow) {
    Session_Bench bench(doubles::pumpIdentity + "LAST=10-11\nLINK=unit:19\n");
    bench.set(1, 1, 2, "1");
    bench.set(1, 3, 2, "0:45");
    bench.set(1, 5, 2, "256");
    bench.set(1, 10, 2, "7");
    EXPECT_THAT(textsOf(rowsToSend(bench)),
                ElementsAre("[x] Mode 10: 'Auto' to 'On' (goes out after all others: it may stop a process)",
                            "[x] Delay 12: '1:30' to '0:45'",
                            "[-] Upper 16/HI: '7' to '256' (half a register holds 0 to 255)",
                            "[ ] Unit 19: '1' to '7' (goes out last of all: it changes the line itself)"));
}

TEST_F(Desk_Rows, SayWhyAValueCantBeSent) {
    Session_Bench bench;
    bench.set(1, 10, 2, "7");
    EXPECT_THAT(textsOf(rowsToSend(bench)),
                ElementsAre("[-] Unit 19: '1' to '7' (downloads don't write it)"));
    bench.toy.unreadable = {12};
    EXPECT_THAT(textsOf(rowsToSend(bench)), AllOf(SizeIs(11), Each(HasSubstr("'' to ")),
                                                  Each(EndsWith("(its register couldn't be read)"))))
        << "its whole block";
}

TEST_F(Desk_Rows, AValueOutsideItsLimitsHasNoTickAndTheReason) {
    Session_Bench bench;
    bench.set(1, 2, 2, "95");
    bench.stray = {{{1, 2, 2}, "its value 95 is outside its limits"}};
    EXPECT_THAT(textsOf(rowsToSend(bench)),
                ElementsAre("[ ] Level 11: '-5' to '95' (its value 95 is outside its limits)"));
}

TEST_F(Desk_Rows, OfAnEndedSendTellWhatBecameOfEachValue) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.set(1, 4, 2, "FAN 2");
    bench.toy.refusing = {11};
    const std::vector<Desk_Row> before = rowsToSend(bench);
    const std::vector<Desk_Row> rows =
        endRows({bench.bench.document, bench.section}, bench.send().report, before);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(textOf(rows[0]), "[-] Level 11: '-5' to '50' (exception 3)");
    EXPECT_EQ(rows[0].state, Value_State::Refused);
    EXPECT_EQ(rows[0].readBack, "");
    EXPECT_EQ(textOf(rows[1]), "[-] Name 13-15: 'PUMP  ' to 'FAN 2 '");
    EXPECT_EQ(rows[1].state, Value_State::Verified);
    EXPECT_EQ(rows[1].readBack, "FAN 2 ");
}

TEST_F(Desk_Rows, WhatWasntSentKeepsItsTexts) {
    Session_Bench bench;
    bench.set(1, 5, 2, "256");
    const std::vector<Desk_Row> before = rowsToSend(bench);
    EXPECT_THAT(textsOf(endRows({bench.bench.document, bench.section}, bench.send().report, before)),
                ElementsAre("[-] Upper 16/HI: '7' to '256' (half a register holds 0 to 255)"));
}

TEST_F(Desk_Rows, AreCountedByTheirTicks) {
    Desk_Row ticked;
    ticked.tickable = ticked.ticked = true;
    Desk_Row unticked;
    unticked.tickable = true;
    const Row_Counts counts = countsOf({ticked, ticked, ticked, unticked, unticked, Desk_Row{}});
    EXPECT_EQ(counts.ticked, 3U);
    EXPECT_EQ(counts.unticked, 2U);
    EXPECT_EQ(counts.impossible, 1U);
    EXPECT_EQ(counts.rows(), 6U);
}

} // namespace
} // namespace zorvane::commission
