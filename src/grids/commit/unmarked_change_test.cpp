// SPDX-License-Identifier: MIT
// A time, a zero or a limit that was put in without the document's mark.
#include "grids/testing/grid_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

/// A field "Timers" of two rows. Column 1 of the model names the row; column 2 is the one at work.
struct Unmarked : ::testing::Test, doubles::Grid_Bench {
    Unmarked() : cell(addTable(2, 2).Cells(1, 2)) {
        Field_Rec& field = document.Fields(1);
        field.Description = "Timers";
        field.Cells(0, 1).Modifiable = false;
        field.Cells(1, 1).Value = "Delay";
        cell.Value = "15";
        cell.Address = "100";
        ownLower.setTextMatrix(1, 1, "15");
    }
    [[nodiscard]] std::string line() const {
        const Bar_Line* found = mainForm.bar.find("unmarked change");
        if (found == nullptr) return "none";
        std::string text = (found->kind == Bar_Kind::Warning ? "warning: " : "note: ") + found->text;
        for (const Bar_Button& button : found->buttons)
            text += " [" + button.caption + "]";
        return text;
    }
    void undo() { mainForm.bar.find("unmarked change")->buttons.at(0).press(); }

    Cell_Rec& cell;
};

TEST_F(Unmarked, LettersThatBecameZero) {
    type(1, 1, "abc");
    EXPECT_EQ(cell.Value, "0");
    EXPECT_EQ(line(),
              "warning: Timers, Delay: \"abc\" is no number. \"15\" was there, \"0\" is there, and the "
              "document is not marked as changed. [Undo]");
    undo();
    EXPECT_EQ(cell.Value, "15");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "15");
    EXPECT_EQ(line(), "none");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Unmarked, LimitInPlaceOfWhatWasOutOfRange) {
    cell.Min_Value = "10";
    cell.Max_Value = "20";
    type(1, 1, "5");
    EXPECT_EQ(cell.Value, "20");
    EXPECT_EQ(line(),
              "warning: Timers, Delay: \"5\" is out of range. \"15\" was there, \"20\" is there, and the "
              "document is not marked as changed. [Undo]");
    undo();
    EXPECT_EQ(cell.Value, "15");
}

TEST_F(Unmarked, BadTimeThatBecameZero) {
    cell.Format = "TIME";
    cell.Value = "1:30";
    type(1, 1, "1:xx");
    EXPECT_EQ(cell.Value, "0:00");
    EXPECT_EQ(line(),
              "warning: Timers, Delay: \"1:xx\" is no time. \"1:30\" was there, \"0:00\" is there, and the "
              "document is not marked as changed. [Undo]");
    undo();
    EXPECT_EQ(cell.Value, "1:30");
}

TEST_F(Unmarked, TimeIsANote) {
    cell.Format = "TIME";
    cell.Value = "1:30";
    type(1, 1, "2:05");
    EXPECT_EQ(line(),
              "note: Timers, Delay: \"1:30\" was there, \"2:05\" is there, and the document is not marked "
              "as changed. [Undo]");
    undo();
    EXPECT_EQ(cell.Value, "1:30");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "1:30");
}

TEST_F(Unmarked, TimeThatTheControllerTookIsANoteToo) {
    form.Online = true;
    cell.Format = "TIME";
    cell.Value = "1:30";
    type(1, 1, "2:05");
    EXPECT_EQ(cell.Value, "2:05");
    EXPECT_EQ(line(), "note: Timers, Delay: \"1:30\" was there, \"2:05\" is there, and the document is not "
                      "marked as changed.");
}

TEST_F(Unmarked, TimeInADocumentThatIsMarkedAlreadyTellsNothing) {
    cell.Format = "TIME";
    cell.Value = "1:30";
    form.Dirty = true;
    type(1, 1, "2:05");
    EXPECT_EQ(line(), "none");
}

TEST_F(Unmarked, ZeroInADocumentThatIsMarkedAlreadyIsTold) {
    form.Dirty = true;
    type(1, 1, "abc");
    EXPECT_EQ(line(),
              "warning: Timers, Delay: \"abc\" is no number. \"15\" was there, \"0\" is there. [Undo]");
}

TEST_F(Unmarked, ValueThatStaysTheSameTellsNothing) {
    cell.Value = "0";
    type(1, 1, "abc");
    EXPECT_EQ(line(), "none");
}

TEST_F(Unmarked, AcceptedNumberTellsNothing) {
    type(1, 1, "16");
    EXPECT_EQ(line(), "none");
}

TEST_F(Unmarked, OnlineThereIsNoUndo) {
    form.Online = true;
    type(1, 1, "abc");
    EXPECT_EQ(line(),
              "warning: Timers, Delay: \"abc\" is no number. \"15\" was there, \"0\" is there, and the "
              "document is not marked as changed.");
}

TEST_F(Unmarked, TheLineGoesWhenTheCellHoldsSomethingElse) {
    type(1, 1, "abc");
    mainForm.bar.review();
    EXPECT_NE(line(), "none");
    cell.Value = "7";
    mainForm.bar.review();
    EXPECT_EQ(line(), "none");
}

TEST_F(Unmarked, TheLineFollowsTheMark) {
    type(1, 1, "abc");
    form.Dirty = true;
    mainForm.bar.review();
    EXPECT_EQ(line(),
              "warning: Timers, Delay: \"abc\" is no number. \"15\" was there, \"0\" is there. [Undo]");
    form.Dirty = false;
    mainForm.bar.review();
    EXPECT_EQ(line(),
              "warning: Timers, Delay: \"abc\" is no number. \"15\" was there, \"0\" is there, and the "
              "document is not marked as changed. [Undo]");
}

TEST_F(Unmarked, WhileOnlineWhatPollingBringsTakesNoLineAway) {
    form.Online = true;
    type(1, 1, "abc");
    cell.Value = "00";
    mainForm.bar.review();
    EXPECT_NE(line(), "none");
}

TEST_F(Unmarked, UndoLeavesACellThatHoldsSomethingElseByNow) {
    type(1, 1, "abc");
    const auto press = mainForm.bar.find("unmarked change")->buttons.at(0).press;
    cell.Value = "7";
    press();
    EXPECT_EQ(cell.Value, "7");
}

TEST_F(Unmarked, UndoDoesNothingOnlineOrForAnotherDocument) {
    type(1, 1, "abc");
    const auto press = mainForm.bar.find("unmarked change")->buttons.at(0).press;
    form.Online = true;
    press();
    EXPECT_EQ(cell.Value, "0");
    form.Online = false;
    ++document.Edition;
    press();
    EXPECT_EQ(cell.Value, "0");
}

TEST_F(Unmarked, UndoOnAnotherPageChangesTheDocumentAlone) {
    type(1, 1, "abc");
    addTable(2, 2); // selected now
    undo();
    EXPECT_EQ(cell.Value, "15");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "0");
}

} // namespace
} // namespace zorvane
