// SPDX-License-Identifier: MIT
#include "grids/fill/stopping_on_failure.h"
#include "grids/flx_settings.h"
#include "grids/rules/edit_rules.h"
#include "grids/testing/grid_bench.h"
#include "template/sections/messages.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

Cell_Rec list(const std::string& messages) {
    Cell_Rec cell;
    readMessages(cell, messages);
    return cell;
}

Cell_Rec ascii(const std::string& first, const std::string& last) {
    Cell_Rec cell;
    cell.Address = first;
    cell.Address_End = last;
    cell.Is_Ascii_Range = true;
    return cell;
}

TEST(Combo_List_Test, NumbersTheEntriesFrom0WhateverTheirCodes) {
    EXPECT_EQ(comboListOf(list("(0)Off,(1)On")), "|#0;Off|#1;On");
    EXPECT_EQ(comboListOf(list("(2)A,(7)B")), "|#0;A|#1;B");
    EXPECT_EQ(comboListOf(list("nothing")), "");
}

TEST(Edit_Max_Length_Test, IsTwoCharactersARegister) {
    EXPECT_EQ(editMaxLengthOf(ascii("100", "104")), 10);
    EXPECT_EQ(editMaxLengthOf(ascii("100", "100")), 2);
    EXPECT_EQ(editMaxLengthOf(ascii("104", "100")), 0);
    EXPECT_EQ(editMaxLengthOf(ascii("100", "99")), 0);
    EXPECT_EQ(editMaxLengthOf(ascii("100x", " 101.6")), 6) << "read leniently: 2.6 registers are 3";
}

class Flx_Settings_Test : public testing::Test, protected doubles::Grid_Bench {
  protected:
    bool beforeEdit(std::int32_t row, std::int32_t col) {
        bool cancel = false;
        FLX_Settings_BeforeEdit(grids, row, col, cancel);
        return !cancel;
    }
    bool startEdit(std::int32_t row, std::int32_t col) {
        bool cancel = false;
        FLX_Settings_StartEdit(grids, row, col, cancel);
        return !cancel;
    }
};

TEST_F(Flx_Settings_Test, AReadOnlyDocumentRefusesEveryMoveWithALine) {
    addTable(1, 2).Cells(0, 2).Modifiable = false;
    document.Read_Only = true;
    ownLower.setComboList("|#0;Off");
    for (std::int32_t col = 0; col < 2; ++col) {
        mainForm.setPanel(Panel::Message, "");
        EXPECT_FALSE(beforeEdit(1, col));
        EXPECT_EQ(mainForm.panel(Panel::Message), "READ ONLY FILE. Can't modify the value.");
    }
    EXPECT_EQ(ownLower.ComboList(), "|#0;Off") << "nothing is prepared";
}

TEST_F(Flx_Settings_Test, EveryRowOfAModifiableColumnCanBeEdited) {
    Field_Rec& field = addTable(3, 2);
    field.Cells(1, 1).Address = "";
    field.Cells(2, 1).Address = "100";
    field.Cells(3, 1) = list("(0)Off");
    field.Cells(0, 2).Modifiable = false;
    field.Cells(1, 2).Modifiable = true; // not asked
    for (const bool online : {false, true}) {
        form.Online = online;
        for (std::int32_t row = 1; row <= 3; ++row) {
            EXPECT_TRUE(beforeEdit(row, 0));
            EXPECT_TRUE(startEdit(row, 0));
            EXPECT_TRUE(beforeEdit(row, 1)) << "this gate asks for read-only alone";
            EXPECT_FALSE(startEdit(row, 1));
        }
    }
    EXPECT_EQ(mainForm.panel(Panel::Message), "") << "the refusal is silent";
}

TEST_F(Flx_Settings_Test, AListCellGetsItsList) {
    addTable(1, 1).Cells(1, 1) = list("(2)A,(7)B");
    EXPECT_TRUE(beforeEdit(1, 0));
    EXPECT_EQ(ownLower.ComboList(), "|#0;A|#1;B");
}

TEST_F(Flx_Settings_Test, AFreeTextCellTakesTheListAway) {
    addTable(1, 1);
    ownLower.setComboList("|#0;A");
    EXPECT_TRUE(beforeEdit(1, 0));
    EXPECT_EQ(ownLower.ComboList(), "");
}

TEST_F(Flx_Settings_Test, AListWithoutEntriesIsFreeTextThatStillEndsInTheListCommit) {
    addTable(1, 1).Cells(1, 1) = list("none");
    document.Fields(1).Cells(1, 1).Value = "9";
    EXPECT_TRUE(beforeEdit(1, 0));
    EXPECT_EQ(ownLower.ComboList(), "");
    try {
        type(1, 0, "typed");
        FAIL() << "entry 1 doesn't exist";
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 9);
    }
    EXPECT_EQ(document.Fields(1).Cells(1, 1).Value, "0") << "the entry's number was 0";
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Flx_Settings_Test, TheLengthLimitCarriesOverToLaterCells) {
    Field_Rec& field = addTable(1, 4);
    field.Cells(1, 1) = ascii("100", "104");
    field.Cells(1, 3) = ascii("104", "100");
    field.Cells(1, 4) = list("(0)Off");
    EXPECT_TRUE(beforeEdit(1, 0));
    EXPECT_EQ(ownLower.EditMaxLength(), 10);
    EXPECT_TRUE(beforeEdit(1, 1));
    EXPECT_EQ(ownLower.EditMaxLength(), 10) << "a number keeps the limit of the cell before";
    EXPECT_TRUE(beforeEdit(1, 3));
    EXPECT_EQ(ownLower.EditMaxLength(), 10) << "and so does a list";
    EXPECT_TRUE(beforeEdit(1, 2));
    EXPECT_EQ(ownLower.EditMaxLength(), 0);
}

TEST_F(Flx_Settings_Test, AfterEditHandsAFreeTextToTheTypedCommit) {
    addTable(1, 1);
    type(1, 0, "007");
    EXPECT_EQ(grids.cell(1, 0).Value, "7");
}

TEST_F(Flx_Settings_Test, AfterEditHandsAnEntryToTheListCommit) {
    addTable(1, 1).Cells(1, 1) = list("(0)Off,(1)On");
    choose(1, 0, "1");
    EXPECT_EQ(grids.cell(1, 0).Value, "1");
    choose(1, 0, "");
    EXPECT_EQ(grids.cell(1, 0).Value, "0") << "no entry chosen counts as the first";
}

TEST_F(Flx_Settings_Test, KeepsADraggedWidthWithoutMarkingTheDocument) {
    addTable(1, 2);
    ownLower.setColWidth(1, 1530);
    FLX_Settings_AfterUserResize(grids, 0, 1);
    EXPECT_EQ(document.Fields(1).Cells(0, 2).Width, 1530);
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Flx_Settings_Test, DropsAWidthThatCantBeKept) {
    addTable(1, 2);
    document.Fields(1).Cells(0, 2).Width = 500;
    ownLower.setColWidth(1, 40000);
    FLX_Settings_AfterUserResize(grids, 0, 1);
    FLX_Settings_AfterUserResize(grids, 0, 7);
    FLX_Settings_AfterUserResize(grids, 0, -1);
    EXPECT_EQ(document.Fields(1).Cells(0, 2).Width, 500);
}

TEST_F(Flx_Settings_Test, HomeWithShiftCtrlAndAltOpensTheDebugForm) {
    FLX_Settings_KeyUp(grids, 36, 3);
    FLX_Settings_KeyUp(grids, 36, 0);
    FLX_Settings_KeyUp(grids, 35, 7);
    EXPECT_EQ(windows.debugShown, 0);
    FLX_Settings_KeyUp(grids, 36, 7);
    EXPECT_EQ(windows.debugShown, 1);
}

TEST_F(Flx_Settings_Test, RecordsTheMouseAndStartsTheColumnTip) {
    navigation.Mouse_Track_Off = true;
    FLX_Settings_MouseMove(grids, 0, 0, 100.5F, 101.5F);
    EXPECT_EQ(navigation.Mouse_X, 100);
    EXPECT_EQ(navigation.Mouse_Y, 102);
    EXPECT_EQ(windows.tipUpdates, 1);
}

TEST_F(Flx_Settings_Test, AFailureInTheWindowStopsTheCommitWithAMessage) {
    addTable(1, 1).Cells(1, 1).Value = "no number";
    ownLower.setTextMatrix(1, 0, "5");
    stoppingOnFailure(mainForm, [this] { FLX_Settings_AfterEdit(grids, 1, 0); });
    EXPECT_EQ(journal.beginningWith("Msgb"),
              std::vector<std::string>{R"(Msgb 16 "Zorvane": "Run-time error '13': Type mismatch")"});
    EXPECT_EQ(grids.cell(1, 0).Value, "no number");
    EXPECT_FALSE(form.Dirty);
}

/// "change of Heating, Pump: 0 -> 5" for each change that it is told of.
struct Listed_Changes final : Value_Watcher {
    void changed(const std::string& name, std::vector<Value_Change> changes) override {
        for (const Value_Change& change : changes)
            told.push_back(name + ": " + change.before + " -> " + change.after);
    }
    void changedForGood() override { told.emplace_back("for good"); }

    std::vector<std::string> told;
};

TEST_F(Flx_Settings_Test, AValueThatWasTakenBeforeTheFailureIsToldTheWatcher) {
    Field_Rec& field = addTable(1, 1);
    field.Description = "Heating";
    field.Cells(1, 1) = list("(0)Off,(1)On");
    field.Cells(1, 1).Value = "0";
    Listed_Changes watcher;
    grids.watcher = &watcher;
    stoppingOnFailure(mainForm, [this] { choose(1, 0, "5"); });
    EXPECT_EQ(journal.beginningWith("Msgb"),
              std::vector<std::string>{R"(Msgb 16 "Zorvane": "Run-time error '9': Subscript out of range")"});
    EXPECT_EQ(watcher.told, std::vector<std::string>{"change of Heating, row 1: 0 -> 5"});
}

} // namespace
} // namespace zorvane
