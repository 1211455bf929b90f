// SPDX-License-Identifier: MIT
#include "grids/commit/commit_list.h"
#include "grids/fill/fill_settings.h"
#include "grids/testing/commit_outcome.h"
#include "template/sections/messages.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::Commit_Outcome;
using doubles::Exchange;

/// A list cell in row 1, column 0, with the entries Off and On and the value "0".
class Commit_List_Test : public testing::Test, protected doubles::Grid_Bench {
  protected:
    Commit_List_Test() {
        addTable(1, 2);
        setList("1004", "(0)Off,(1)On");
    }

    Cell_Rec& cell() { return grids.cell(1, 0); }
    void setList(const std::string& address, const std::string& messages) {
        cell() = Cell_Rec{};
        cell().Address = address;
        cell().Value = "0";
        readMessages(cell(), messages);
    }
    Commit_Outcome commit(const std::string& entry) {
        choose(1, 0, entry);
        return doubles::outcomeOf(*this);
    }
    std::vector<std::string> writes() const { return journal.beginningWith("link Preset"); }
    std::string written(const std::string& entry) {
        journal.clear();
        choose(1, 0, entry);
        return writes().empty() ? "" : writes().back();
    }
};

TEST_F(Commit_List_Test, OfflineStoresTheEntrysNumberAndShowsItsText) {
    Commit_Outcome expected;
    expected.Value = "1";
    expected.grid = "On";
    expected.title = "* site7.abc - Zorvane";
    expected.save = "on";
    EXPECT_EQ(commit("1"), expected);
    EXPECT_TRUE(form.Dirty);
}

TEST_F(Commit_List_Test, OfflineStoresThePlaceAndNotTheCode) {
    setList("1004", "(2)A,(7)B");
    choose(1, 0, "1");
    EXPECT_EQ(cell().Value, "1");
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "B");
    PRO_Llena_Settings(grids, 1, false);
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "") << "a later fill doesn't find code 1";
}

TEST_F(Commit_List_Test, OfflineAnEntryThatIsNotThereIsASubscriptFailure) {
    try {
        choose(1, 0, "2");
        FAIL() << "no failure";
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 9);
    }
    EXPECT_EQ(cell().Value, "2");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Commit_List_Test, OnlineASuccessBlanksTheCellAndLeavesTheModelToTheRefresh) {
    form.Online = true;
    Commit_Outcome expected;
    expected.Value = "0";
    expected.grid = "";
    expected.writes = {"link PresetSingleRegister 3 1004 1"};
    expected.title = "* site7.abc - Zorvane";
    expected.save = "on";
    expected.panel = "\"Write: 1 @1004 ...Pending\"\n\"Write: 1 @1004 ...Completed\"\n";
    expected.colours = "modifiable";
    expected.scanStarted = true;
    expected.focus = 1;
    expected.col = -1;
    EXPECT_EQ(commit("1"), expected);
}

TEST_F(Commit_List_Test, OnlineAFailureKeepsTheChosenTextAndStillMarksTheDocument) {
    form.Online = true;
    link.writes = {{Exchange{false, "", nullptr, "", ""}}};
    Commit_Outcome expected;
    expected.Value = "0";
    expected.grid = "On";
    expected.writes = {"link PresetSingleRegister 3 1004 1"};
    expected.title = "* site7.abc - Zorvane";
    expected.save = "on";
    expected.panel = "\"Write: 1 @1004 ...Pending\"\n\"Write: 1 @1004 ...Failed\"\n";
    expected.colours = "error";
    expected.scanStarted = true;
    expected.focus = 1;
    expected.col = -1;
    EXPECT_EQ(commit("1"), expected);
}

TEST_F(Commit_List_Test, ADisconnectDuringTheWriteStoresTheEntryOfflineAsWell) {
    form.Online = true;
    mainForm.duringPause = [this](std::int32_t) { form.Online = false; };
    EXPECT_EQ(written("1"), "link PresetSingleRegister 3 1004 1");
    EXPECT_EQ(cell().Value, "1");
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "") << "no column is current then";
}

TEST_F(Commit_List_Test, AHighHalfKeepsTheLowByteOfTheImage) {
    form.Online = true;
    setList("2000/HI", "(0)a,(1)b,(2)c,(3)d,(4)e,(5)f");
    link.image[2000] = 0x1234;
    EXPECT_EQ(written("5"), "link PresetSingleRegister 3 2000 " + std::to_string(0x0534));
    EXPECT_EQ(journal.beginningWith("panel 4"),
              std::vector<std::string>{"panel 4 = \"Write: 5 @2000/HI ...Completed\""})
        << "nothing is shown before the write";
}

TEST_F(Commit_List_Test, ALowHalfKeepsTheHighByteOfTheImage) {
    form.Online = true;
    setList("2000/LO", "(0)a,(1)b,(2)c,(3)d,(4)e,(5)f");
    link.image[2000] = 0x1234;
    EXPECT_EQ(written("5"), "link PresetSingleRegister 3 2000 " + std::to_string(0x1205));
}

TEST_F(Commit_List_Test, TheOtherHalfComesFromTheLastScanHoweverOld) {
    form.Online = true;
    setList("2000/LO", "(0)a,(1)b");
    link.image[2000] = 0x7700; // the controller may hold something else by now
    EXPECT_EQ(written("1"), "link PresetSingleRegister 3 2000 " + std::to_string(0x7701));
}

TEST_F(Commit_List_Test, ANegativeImageKeepsItsBytes) {
    EXPECT_EQ(halfWithEntry(-2, false, 5), -256 + 5);
    EXPECT_EQ(halfWithEntry(-2, true, 5), 5 * 256 + 254);
}

TEST_F(Commit_List_Test, AnEntryAbove255SpillsIntoTheHighByte) {
    EXPECT_EQ(halfWithEntry(0x1200, false, 257), 0x1301);
}

TEST_F(Commit_List_Test, AnEntryThatNoRegisterHoldsIsAnOverflow) {
    EXPECT_THROW(static_cast<void>(halfWithEntry(0, true, 2147483647)), Run_Time_Failure);
}

TEST_F(Commit_List_Test, AnAddressOfNoKnownFormIsNotWrittenAndReportsCompletedAllTheSame) {
    form.Online = true;
    for (const std::string address : {"abc/HI", "2000/hi", "", "word"}) {
        setList(address, "(0)Off,(1)On");
        journal.clear();
        const Commit_Outcome outcome = commit("1");
        EXPECT_EQ(outcome.writes, std::vector<std::string>{}) << address;
        EXPECT_EQ(outcome.panel, "\"Write: 1 @" + address + " ...Completed\"\n");
        EXPECT_EQ(outcome.colours, "modifiable");
        EXPECT_EQ(outcome.col, -1);
    }
}

TEST_F(Commit_List_Test, TheFactoryFileKeepsSaveOff) {
    document.File_Stem = "DEFAULT";
    choose(1, 0, "1");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    EXPECT_TRUE(form.Dirty);
}

TEST_F(Commit_List_Test, HidesTheComboBox) {
    editors.EDT_Modifica_Combo.Visible = true;
    choose(1, 0, "1");
    EXPECT_FALSE(editors.EDT_Modifica_Combo.Visible);
}

// How the two paths differ, point by point. The typed cell stands in column 1.

class Typed_Or_List_Test : public Commit_List_Test {
  protected:
    Typed_Or_List_Test() {
        Cell_Rec& typed = grids.cell(1, 1);
        typed.Address = "1005";
        typed.Min_Value = "0";
        typed.Max_Value = "20";
    }
    Cell_Rec& typedCell() { return grids.cell(1, 1); }
};

TEST_F(Typed_Or_List_Test, OnlyTheTypedPathRefuses) {
    type(1, 1, "21");
    EXPECT_EQ(typedCell().Value, "20");
    EXPECT_EQ(journal.beginningWith("Msgb").size(), 1U);
    journal.clear();
    cell().Max_Value = "0";
    choose(1, 0, "1");
    EXPECT_EQ(cell().Value, "1");
    EXPECT_EQ(journal.beginningWith("Msgb").size(), 0U);
}

TEST_F(Typed_Or_List_Test, ValueOfflineIsTheTextsNumberOrTheEntrysNumber) {
    type(1, 1, "007");
    choose(1, 0, "01");
    EXPECT_EQ(typedCell().Value, "7");
    EXPECT_EQ(cell().Value, "1");
}

TEST_F(Typed_Or_List_Test, ValueOnlineIsUpdatedByTheTypedPathOnly) {
    form.Online = true;
    type(1, 1, "12");
    choose(1, 0, "1");
    EXPECT_EQ(typedCell().Value, "12");
    EXPECT_EQ(cell().Value, "0");
}

TEST_F(Typed_Or_List_Test, AFailedWriteRestoresTheTypedValueOnly) {
    form.Online = true;
    link.writes = {{Exchange{false, "", nullptr, "", ""}}, {Exchange{false, "", nullptr, "", ""}}};
    typedCell().Value = "3";
    type(1, 1, "12");
    EXPECT_EQ(typedCell().Value, "3");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "3");
    choose(1, 0, "1");
    EXPECT_EQ(cell().Value, "0");
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "On");
}

TEST_F(Typed_Or_List_Test, TheGridShowsTheTypedTextAndABlankListCell) {
    form.Online = true;
    type(1, 1, "012");
    choose(1, 0, "1");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "012");
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "");
}

TEST_F(Typed_Or_List_Test, OnlyTheListPathWritesHalfARegister) {
    form.Online = true;
    typedCell().Address = "2000/LO";
    setList("2000/LO", "(0)Off,(1)On");
    type(1, 1, "5");
    EXPECT_EQ(writes(), std::vector<std::string>{});
    choose(1, 0, "1");
    EXPECT_EQ(writes(), std::vector<std::string>{"link PresetSingleRegister 3 2000 1"});
}

TEST_F(Typed_Or_List_Test, OnlyTheListPathAlwaysMarksTheDocument) {
    type(1, 1, "abc");
    EXPECT_FALSE(form.Dirty);
    choose(1, 0, "0");
    EXPECT_TRUE(form.Dirty);
}

TEST_F(Typed_Or_List_Test, TheCurrentColumnAfterwardsIsTheEditedOneOrNone) {
    form.Online = true;
    type(1, 1, "5");
    EXPECT_EQ(ownLower.Col(), 1);
    choose(1, 0, "1");
    EXPECT_EQ(ownLower.Col(), -1);
    EXPECT_EQ(ownLower.focusCalls(), 2);
}

} // namespace
} // namespace zorvane
