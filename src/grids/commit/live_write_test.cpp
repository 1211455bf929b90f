// SPDX-License-Identifier: MIT
#include "comm/transfer/session.h"
#include "grids/commit/live_write.h"
#include "grids/commit/register_writes.h"
#include "grids/testing/commit_outcome.h"
#include "template/sections/messages.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zorvane {
namespace {

using doubles::Commit_Outcome;
using doubles::Exchange;

const Exchange noAnswer{false, "", nullptr, "", ""};

/// One online cell in row 1, column 0 at register 1004, with the value "7".
class Live_Write_Test : public testing::Test, protected doubles::Grid_Bench {
  protected:
    Live_Write_Test() {
        Field_Rec& field = addTable(2, 2);
        field.Cells(1, 1).Address = "1004";
        field.Cells(1, 1).Value = "7";
        form.Online = true;
    }

    Cell_Rec& cell() { return grids.cell(1, 0); }
    std::string shown() const { return ownLower.TextMatrix(1, 0); }
    std::string panel() const { return mainForm.panel(Panel::Message); }
    std::vector<std::string> writes() const { return journal.beginningWith("link Preset"); }
    /// A write that is still going on when the next one starts.
    void keepLinkBusy(std::function<void()> beforeItsEnd) {
        link.writes.push_front({Exchange{true, "", std::move(beforeItsEnd), "", ""}});
        link.PresetSingleRegister(3, 1, 1);
        journal.clear();
    }
};

TEST(Status_Line_Test, NamesValueAddressAndProgress) {
    EXPECT_EQ(statusLine({"120", "1004", Write_Progress::Completed}), "Write: 120 @1004 ...Completed");
    EXPECT_EQ(statusLine({"", "1004", Write_Progress::Failed}), "Write:  @1004 ...Failed");
    EXPECT_EQ(statusLine({"5", "", Write_Progress::Pending}), "Write: 5 @ ...Pending");
}

// The three variants, by the kind of address and the end of the write.

enum class Kind { Number, Time, List };

struct Variant_Case {
    const char* name;
    Kind kind;
    const char* address;
    bool good;
    Commit_Outcome outcome;
};

struct Effects {
    const char* value;
    const char* grid;
    std::vector<std::string> writes;
    std::string panel;
    const char* colours;
    int focus;
    std::int32_t col;
    bool marked;
};

Commit_Outcome effects(const Effects& given) {
    Commit_Outcome outcome;
    outcome.Value = given.value;
    outcome.grid = given.grid;
    outcome.writes = given.writes;
    outcome.panel = given.panel;
    outcome.colours = given.colours;
    outcome.focus = given.focus;
    outcome.col = given.col;
    outcome.scanStarted = true;
    if (given.marked) {
        outcome.title = "* site7.abc - Zorvane";
        outcome.save = "on";
    }
    return outcome;
}

const std::string number1004 = "link PresetSingleRegister 3 1004 12";
const std::string time1004 = "link PresetSingleRegister 3 1004 90";
const std::string list1004 = "link PresetSingleRegister 3 1004 1";

// The number commits "12" over "7", the time "1:30" over "7", the list entry 1, "On", over "7".
const std::vector<Variant_Case> variantCases = {
    {"number", Kind::Number, "1004", true,
     effects({"12",
              "12",
              {number1004},
              "\"Write: 12 @1004 ...Pending\"\n\"Write: 12 @1004 ...Completed\"\n",
              "modifiable",
              1,
              0,
              true})},
    {"number failed", Kind::Number, "1004", false,
     effects({"7",
              "7",
              {number1004},
              "\"Write: 12 @1004 ...Pending\"\n\"Write: 12 @1004 ...Failed\"\n",
              "error",
              1,
              0,
              true})},
    {"number on half a register", Kind::Number, "1004/HI", true,
     effects({"12", "12", {}, "\"Write: 12 @1004/HI ...Completed\"\n", "modifiable", 1, 0, true})},
    {"number without a register", Kind::Number, "", true,
     effects({"12", "12", {}, "\"Write: 12 @ ...Completed\"\n", "modifiable", 1, 0, true})},
    {"time", Kind::Time, "1004", true, effects({"1:30", "1:30", {time1004}, "", "modifiable", 0, 0, false})},
    {"time failed", Kind::Time, "1004", false,
     effects({"7", "1:30", {time1004}, "\"Write:  @1004 ...Failed\"\n", "error", 0, 0, false})},
    {"time on half a register", Kind::Time, "1004/HI", true,
     effects({"1:30", "1:30", {time1004}, "", "modifiable", 0, 0, false})},
    {"time without a register", Kind::Time, "", true,
     effects({"1:30", "1:30", {"link PresetSingleRegister 3 0 90"}, "", "modifiable", 0, 0, false})},
    {"list", Kind::List, "1004", true,
     effects({"7",
              "",
              {list1004},
              "\"Write: 1 @1004 ...Pending\"\n\"Write: 1 @1004 ...Completed\"\n",
              "modifiable",
              1,
              -1,
              true})},
    {"list failed", Kind::List, "1004", false,
     effects({"7",
              "On",
              {list1004},
              "\"Write: 1 @1004 ...Pending\"\n\"Write: 1 @1004 ...Failed\"\n",
              "error",
              1,
              -1,
              true})},
    {"list on half a register", Kind::List, "1004/HI", true,
     effects({"7",
              "",
              {"link PresetSingleRegister 3 1004 256"},
              "\"Write: 1 @1004/HI ...Completed\"\n",
              "modifiable",
              1,
              -1,
              true})},
    {"list on half a register failed", Kind::List, "1004/LO", false,
     effects({"7", "On", {list1004}, "\"Write: 1 @1004/LO ...Failed\"\n", "error", 1, -1, true})},
    {"list without a register", Kind::List, "", true,
     effects({"7", "", {}, "\"Write: 1 @ ...Completed\"\n", "modifiable", 1, -1, true})},
};

class Variant_Test : public Live_Write_Test, public testing::WithParamInterface<Variant_Case> {};

TEST_P(Variant_Test, DoesWhatItsRowSays) {
    const Variant_Case& each = GetParam();
    cell().Address = each.address;
    if (!each.good) link.writes = {{noAnswer}};
    int pauses = 0;
    mainForm.duringPause = [&](std::int32_t milliseconds) {
        ++pauses;
        EXPECT_EQ(milliseconds, 500);
        EXPECT_FALSE(ownLower.TabStop());
        EXPECT_EQ(doubles::colourNames(ownLower), "writing");
    };
    switch (each.kind) {
    case Kind::Number:
        type(1, 0, "12");
        break;
    case Kind::Time:
        cell().Format = "TIME";
        type(1, 0, "1:30");
        break;
    case Kind::List:
        readMessages(cell(), "(0)Off,(1)On");
        choose(1, 0, "1");
        break;
    }
    EXPECT_EQ(pauses, 1) << "each write holds the grid for half a second";
    EXPECT_EQ(doubles::outcomeOf(*this), each.outcome);
}

INSTANTIATE_TEST_SUITE_P(All, Variant_Test, testing::ValuesIn(variantCases), [](const auto& each) {
    std::string name = each.param.name;
    for (char& c : name)
        if (c == ' ') c = '_';
    return name;
});

// The order of the steps.

TEST_F(Live_Write_Test, RunsItsStepsInOrder) {
    link.writes = {{Exchange{true, "", [this] { journal.add("the answer comes"); }, "", ""}}};
    type(1, 0, "12");
    EXPECT_EQ(journal.lines(),
              (std::vector<std::string>{"link StartScan", "panel 4 = \"Write: 12 @1004 ...Pending\"",
                                        "link PresetSingleRegister 3 1004 12", "the answer comes",
                                        "wait 500 ms", "panel 4 = \"Write: 12 @1004 ...Completed\"",
                                        "caption = \"* site7.abc - Zorvane\"", "MNU_Save enabled"}));
}

TEST_F(Live_Write_Test, WaitsForARunningExchangeBeforeItSaysPending) {
    keepLinkBusy([this] {
        EXPECT_TRUE(form.Write_Busy);
        EXPECT_EQ(panel(), "");
        EXPECT_EQ(doubles::colourNames(ownLower), "writing");
        journal.add("the running exchange ends");
    });
    type(1, 0, "12");
    const auto& lines = journal.lines();
    ASSERT_GE(lines.size(), 3U);
    EXPECT_EQ(lines[0], "link StartScan");
    EXPECT_EQ(lines[1], "the running exchange ends");
    EXPECT_EQ(lines[2], "panel 4 = \"Write: 12 @1004 ...Pending\"");
    EXPECT_FALSE(form.Write_Busy);
}

TEST_F(Live_Write_Test, AFailedNumberBringsTheOldValueBackOnTheErrorColours) {
    link.writes = {{noAnswer}};
    type(1, 0, "12");
    EXPECT_EQ(shown(), "7");
    EXPECT_EQ(cell().Value, "7");
    EXPECT_EQ(panel(), "Write: 12 @1004 ...Failed");
    EXPECT_EQ(doubles::colourNames(ownLower), "error");
}

TEST_F(Live_Write_Test, ANumberComesBackToItsColumnWhereverTheUserWent) {
    link.writes = {{Exchange{true, "", [this] { ownLower.setCol(1); }, "", ""}}};
    type(1, 0, "12");
    EXPECT_EQ(ownLower.Col(), 0);
}

TEST_F(Live_Write_Test, AFailedFractionComesBackRounded) {
    link.writes = {{noAnswer}};
    cell().Value = " 6.5 ";
    type(1, 0, "12");
    EXPECT_EQ(shown(), "6");
    EXPECT_EQ(cell().Value, "6");
}

TEST_F(Live_Write_Test, ATypedValueOnHalfARegisterCompletesWithoutARequest) {
    cell().Address = "1004/HI";
    type(1, 0, "12");
    EXPECT_EQ(writes(), std::vector<std::string>{});
    EXPECT_EQ(panel(), "Write: 12 @1004/HI ...Completed");
    EXPECT_EQ(doubles::colourNames(ownLower), "modifiable");
    EXPECT_EQ(cell().Value, "12");
}

TEST_F(Live_Write_Test, AnOldFailureCountsUntilItIsCleared) {
    link.writeFailed = true;
    cell().Address = "1004/HI";
    type(1, 0, "12");
    EXPECT_EQ(panel(), "Write: 12 @1004/HI ...Failed");
    EXPECT_EQ(cell().Value, "7");
}

TEST_F(Live_Write_Test, MinutesKeepTheSecondsOfTheRegister) {
    cell().Format = "TIMEMM";
    link.image[1004] = 125;
    link.writes = {
        {Exchange{true, "", [this] { EXPECT_EQ(panel(), "Write: 185 @1004 ...Pending"); }, "", ""}}};
    type(1, 0, "3");
    EXPECT_EQ(writes(), std::vector<std::string>{"link PresetSingleRegister 3 1004 185"});
    EXPECT_EQ(shown(), "3");
    EXPECT_EQ(cell().Value, "3");
    EXPECT_EQ(panel(), "Write: 3 @1004 ...Completed");
}

TEST_F(Live_Write_Test, SecondsKeepTheMinutesOfTheRegister) {
    cell().Format = "timess";
    link.image[1004] = 125;
    type(1, 0, "7");
    EXPECT_EQ(writes(), std::vector<std::string>{"link PresetSingleRegister 3 1004 127"});
    EXPECT_EQ(shown(), "7");
    EXPECT_EQ(cell().Value, "7");
}

TEST_F(Live_Write_Test, AFailedMinutesWriteNamesTheWholeRegister) {
    cell().Format = "TIMEMM";
    link.image[1004] = 125;
    link.writes = {{noAnswer}};
    type(1, 0, "3");
    EXPECT_EQ(panel(), "Write: 185 @1004 ...Failed");
    EXPECT_EQ(shown(), "7");
}

TEST_F(Live_Write_Test, MinutesOnHalfARegisterAreCutWithoutBeingWritten) {
    cell().Address = "1004/LO";
    cell().Format = "TIMEMM";
    type(1, 0, "3");
    EXPECT_EQ(writes(), std::vector<std::string>{});
    EXPECT_EQ(shown(), "0") << "3 is taken for the seconds of the whole register";
    EXPECT_EQ(cell().Value, "0");
}

TEST_F(Live_Write_Test, ItsResultSaysWhatTheControllerDid) {
    Time_Write variant(grids, 1, 0, "0:10");
    link.writes = {{{.good = false, .response = "BUSY"}}, {{}}, {noAnswer}};
    const Live_Write_Result refused = writeLive(grids, variant);
    EXPECT_EQ(refused.outcome, Write_Outcome::Refused);
    EXPECT_FALSE(refused.failedBefore);
    const Live_Write_Result taken = writeLive(grids, variant);
    EXPECT_EQ(taken.outcome, Write_Outcome::Taken);
    EXPECT_TRUE(taken.failedBefore);
    EXPECT_EQ(writeLive(grids, variant).outcome, Write_Outcome::Uncertain);
}

TEST_F(Live_Write_Test, ItsResultSaysThatItsDocumentIsGone) {
    Time_Write variant(grids, 1, 0, "0:10");
    link.writes = {{{.before = [this] { ++document.Edition; }}}};
    EXPECT_TRUE(writeLive(grids, variant).dropped);
}

TEST(Half_Time_Test, JoinsAndSplitsARegisterOfSeconds) {
    Cell_Rec cell;
    cell.Format = "TimeMM";
    EXPECT_EQ(joinedTime(cell, "3", 125), "185");
    EXPECT_EQ(joinedTime(cell, "5.5", -65), "325");
    EXPECT_EQ(splitTime(cell, "185"), "3");
    cell.Format = "TIMESS";
    EXPECT_EQ(joinedTime(cell, "7", 125), "127");
    EXPECT_EQ(joinedTime(cell, "70", 125), "190");
    EXPECT_EQ(splitTime(cell, "127"), "7");
    EXPECT_EQ(splitTime(cell, "-127"), "-7");
    cell.Format = " TIMESS";
    EXPECT_EQ(joinedTime(cell, "7", 125), "7") << "the word isn't trimmed here";
    EXPECT_EQ(splitTime(cell, "127"), "127");
}

TEST_F(Live_Write_Test, ANegativeNumberGoesOutInTheFormatOfItsColumn) {
    grids.definition(0).Bits_Negative_Format = "16";
    type(1, 0, "-5");
    grids.definition(0).Bits_Negative_Format = "8";
    type(1, 0, "-5");
    grids.definition(0).Bits_Negative_Format = "";
    type(1, 0, "-5");
    grids.definition(0).Bits_Negative_Format = "none";
    type(1, 0, "-5");
    EXPECT_EQ(writes(), (std::vector<std::string>{
                            "link PresetSingleRegister 3 1004 65531", "link PresetSingleRegister 3 1004 133",
                            "link PresetSingleRegister 3 1004 -5", "link PresetSingleRegister 3 1004 0"}));
    EXPECT_EQ(cell().Value, "-5");
}

TEST_F(Live_Write_Test, AFractionAbove0IsRoundedWhateverTheColumnsNegativeFormat) {
    grids.definition(0).Bits_Negative_Format = "8";
    type(1, 0, "0.7");
    EXPECT_EQ(writes(), std::vector<std::string>{"link PresetSingleRegister 3 1004 1"});
}

TEST_F(Live_Write_Test, HalvesGoToTheEvenNeighbour) {
    type(1, 0, "5.5");
    EXPECT_EQ(cell().Value, "5.5");
    EXPECT_EQ(shown(), "5.5");
    type(1, 0, "6.5");
    EXPECT_EQ(writes(), (std::vector<std::string>{"link PresetSingleRegister 3 1004 6",
                                                  "link PresetSingleRegister 3 1004 6"}));
    EXPECT_EQ(cell().Value, "6.5");
}

TEST_F(Live_Write_Test, OtherCellsOfTheSameRegisterStay) {
    grids.cell(2, 0).Address = "1004";
    grids.cell(2, 0).Value = "7";
    ownLower.setTextMatrix(2, 0, "7");
    type(1, 0, "12");
    EXPECT_EQ(grids.cell(2, 0).Value, "7");
    EXPECT_EQ(ownLower.TextMatrix(2, 0), "7");
}

// Events during the waits.

TEST_F(Live_Write_Test, ASecondCommitCanRunInsideTheFirst) {
    grids.cell(2, 1).Address = "1005";
    bool nested = false;
    mainForm.duringPause = [&](std::int32_t) {
        if (std::exchange(nested, true)) return;
        type(2, 1, "8");
    };
    type(1, 0, "12");
    EXPECT_EQ(writes(), (std::vector<std::string>{"link PresetSingleRegister 3 1004 12",
                                                  "link PresetSingleRegister 3 1005 8"}));
    EXPECT_EQ(cell().Value, "12");
    EXPECT_EQ(grids.cell(2, 1).Value, "8");
    EXPECT_TRUE(ownLower.TabStop());
}

TEST_F(Live_Write_Test, TheFieldIsAskedAnewAfterAWait) {
    Field_Rec& other = addTable(2, 2);
    other.Cells(1, 1).Address = "2000";
    selectField(1);
    mainForm.duringPause = [this](std::int32_t) { selectField(2); };
    type(1, 0, "12");
    EXPECT_EQ(document.Fields(2).Cells(1, 1).Value, "12");
    EXPECT_EQ(document.Fields(1).Cells(1, 1).Value, "7");
    EXPECT_EQ(panel(), "Write: 12 @2000 ...Completed");
}

TEST_F(Live_Write_Test, AModelThatFailsAfterAWaitStopsTheCommit) {
    mainForm.duringPause = [this](std::int32_t) { document.Fields.redim(0); };
    EXPECT_THROW(type(1, 0, "12"), Run_Time_Failure);
    EXPECT_TRUE(ownLower.TabStop()) << "the grid is back in the tab order";
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Live_Write_Test, DisconnectedMeanwhileTheWriteFailsAndTheOldValueComesBack) {
    link.writes = {{Exchange{true, "", [this] { MNU_Disconnect_Click(comm); }, "", ""}}};
    type(1, 0, "12");
    EXPECT_EQ(cell().Value, "7");
    EXPECT_EQ(shown(), "7");
    EXPECT_EQ(panel(), "Write: 12 @1004 ...Failed");
    EXPECT_EQ(doubles::colourNames(ownLower), "error");
}

// A document that goes while its write waits. What comes after it has a cell at the same place.

enum class Waiting { For_The_Link, For_The_Write, For_The_Controller };
enum class Event { Opens_Another, Closes };

class Orphaned_Write_Test : public Live_Write_Test,
                            public testing::WithParamInterface<std::tuple<Waiting, Event>> {
  protected:
    /// Has the event happen in that wait of the next commit.
    void arrange() {
        const auto event = [this] { happen(); };
        switch (std::get<Waiting>(GetParam())) {
        case Waiting::For_The_Link:
            return keepLinkBusy(event);
        case Waiting::For_The_Write:
            link.writes = {{Exchange{true, "", event, "", ""}}};
            return;
        case Waiting::For_The_Controller:
            mainForm.duringPause = [event](std::int32_t) { event(); };
            return;
        }
    }

    void happen() {
        PRO_Fin_Sesion(comm);
        PRO_Limpia_Modelo(document);
        ownUpper.setRows(0);
        ownLower.setRows(0);
        if (std::get<Event>(GetParam()) == Event::Opens_Another) {
            document.Fields.redim(highestField);
            Field_Rec& field = addTable(2, 2);
            field.Cells(1, 1).Address = "2000";
            field.Cells(1, 1).Value = "3";
            selectField(1);
            ownLower.setTextMatrix(1, 0, "3");
            ownLower.setRow(1);
            ownLower.setCol(0);
        }
        journal.clear();
        focusBefore = ownLower.focusCalls();
    }

    void expectUntouched() {
        EXPECT_FALSE(form.Dirty);
        EXPECT_EQ(writes(), std::vector<std::string>{});
        for (const std::string& line : journal.lines())
            EXPECT_TRUE(line == "panel 4 = \"\"" || line == "wait 500 ms" ||
                        line == "FLX_Settings tab stop on")
                << line;
        EXPECT_TRUE(ownLower.TabStop());
        EXPECT_EQ(ownLower.focusCalls(), focusBefore);
        if (std::get<Event>(GetParam()) == Event::Closes) {
            EXPECT_EQ(ownLower.Rows(), 0);
            return;
        }
        EXPECT_EQ(cell().Value, "3");
        EXPECT_EQ(shown(), "3");
        EXPECT_EQ(ownLower.Col(), 0);
        EXPECT_EQ(doubles::colourNames(ownLower), "as before");
    }

    int focusBefore = 0;
};

TEST_P(Orphaned_Write_Test, ANumberLeavesEverythingAlone) {
    arrange();
    type(1, 0, "12");
    expectUntouched();
    EXPECT_EQ(panel(), "") << "a pending line of the old document would stand for ever";
}

TEST_P(Orphaned_Write_Test, ATimeLeavesEverythingAlone) {
    cell().Format = "TIME";
    arrange();
    type(1, 0, "1:30");
    expectUntouched();
}

TEST_P(Orphaned_Write_Test, AListChoiceLeavesEverythingAlone) {
    cell().Has_Messages = true;
    cell().Messages.redim(2);
    cell().Messages(2).Text = "On";
    arrange();
    choose(1, 0, "1");
    expectUntouched();
}

TEST_P(Orphaned_Write_Test, ATextLeavesEverythingAlone) {
    cell().Is_Ascii_Range = true;
    cell().Address_End = "1005";
    arrange();
    type(1, 0, "AB");
    expectUntouched();
}

INSTANTIATE_TEST_SUITE_P(Waits, Orphaned_Write_Test,
                         testing::Combine(testing::Values(Waiting::For_The_Link, Waiting::For_The_Write,
                                                          Waiting::For_The_Controller),
                                          testing::Values(Event::Opens_Another, Event::Closes)));

TEST_F(Live_Write_Test, AnOrphanedWriteLeavesThePanelOfTheNewDocument) {
    link.writes = {{Exchange{true, "",
                             [this] {
                                 PRO_Limpia_Modelo(document);
                                 mainForm.setPanel(Panel::Message, "This file fit on the template.");
                             },
                             "", ""}}};
    type(1, 0, "12");
    EXPECT_EQ(panel(), "This file fit on the template.");
}

TEST_F(Live_Write_Test, AnAddressThatNoNumberHoldsStopsTheCommit) {
    cell().Address = "99999999999";
    try {
        type(1, 0, "12");
        FAIL() << "no failure";
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 6);
    }
    EXPECT_EQ(cell().Value, "7");
    EXPECT_EQ(writes(), std::vector<std::string>{});
}

} // namespace
} // namespace zorvane
