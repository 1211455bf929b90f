// SPDX-License-Identifier: MIT
#include "app/edit/history_commands.h"
#include "app/edit/testing/edit_bench.h"
#include "grids/flx_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct History_Commands : testing::Test, doubles::Edit_Bench {
    /// The user types into the column of values.
    void type(std::int32_t row, const std::string& text) {
        lower.setRow(row);
        lower.setCol(1);
        lower.setText(text);
        FLX_Settings_AfterEdit(app.grids, row, 1);
    }
    void save() { MNU_Save_Click(app); }
};

TEST_F(History_Commands, ATypedValueComesBackAndGoesAgain) {
    EXPECT_EQ(undoEntry(app).why, "There is nothing to undo.");
    type(1, "11");
    EXPECT_EQ(undoEntry(app).caption, "Undo change of Inputs, low");
    EXPECT_TRUE(undoEntry(app).enabled);
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1), "10");
    EXPECT_EQ(lower.TextMatrix(1, 1), "10");
    EXPECT_EQ(redoEntry(app).caption, "Redo change of Inputs, low");
    MNU_Redo_Click(app);
    EXPECT_EQ(value(1), "11");
    EXPECT_EQ(lower.TextMatrix(1, 1), "11");
    EXPECT_EQ(redoEntry(app).why, "There is nothing to redo.");
}

TEST_F(History_Commands, BackToTheFileIsACleanTitleWithoutAWait) {
    type(1, "11");
    type(2, "21");
    EXPECT_TRUE(form.Dirty);
    MNU_Undo_Click(app);
    EXPECT_TRUE(form.Dirty);
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    journal.clear();
    MNU_Undo_Click(app);
    EXPECT_FALSE(form.Dirty);
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    EXPECT_THAT(journal.beginningWith("caption"), ElementsAre("caption = \"site7.abc - Zorvane\""));
    EXPECT_THAT(journal.beginningWith("wait"), IsEmpty());
    EXPECT_THAT(journal.beginningWith("panel"), IsEmpty());
    MNU_Redo_Click(app);
    EXPECT_TRUE(form.Dirty);
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
}

TEST_F(History_Commands, ASaveKeepsTheSteps) {
    type(1, "11");
    save();
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1), "10");
    EXPECT_TRUE(form.Dirty) << "the file has 11";
    MNU_Redo_Click(app);
    EXPECT_FALSE(form.Dirty);
}

TEST_F(History_Commands, AFailedSaveIsNoStateToComeBackTo) {
    type(1, "11");
    files.failAfter(0);
    save();
    EXPECT_FALSE(form.Dirty) << "the title goes clean even so";
    files.failAfter(doubles::Memory_Files::noLimit);
    MNU_Undo_Click(app);
    MNU_Redo_Click(app);
    EXPECT_TRUE(form.Dirty);
}

TEST_F(History_Commands, TheCellOfAStepIsShown) {
    type(1, "11");
    upper.setRow(2);
    document.Selected_Field = 2;
    MNU_Undo_Click(app);
    EXPECT_EQ(upper.Row(), 1);
    EXPECT_EQ(lower.Row(), 1);
    EXPECT_EQ(lower.Col(), 1);
}

TEST_F(History_Commands, ManyValuesAreOneStep) {
    takeValues(app, {{{1, 1, 2}, "11", {}, true}, {{1, 2, 2}, "21", {}, true}, {{2, 1, 2}, "3", {}, false}},
               "paste of 2 values");
    EXPECT_EQ(value(1) + " " + value(2), "11 21");
    EXPECT_EQ(lower.TextMatrix(2, 1), "21");
    EXPECT_TRUE(form.Dirty);
    EXPECT_EQ(told(), "2 values differ from the file.");
    EXPECT_EQ(undoEntry(app).caption, "Undo paste of 2 values");
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1) + " " + value(2), "10 20");
    EXPECT_EQ(told(), "");
}

TEST_F(History_Commands, TakingNothingMarksNothing) {
    takeValues(app, {{{1, 1, 2}, "10", {}, false}}, "paste of 0 values");
    EXPECT_FALSE(form.Dirty);
    EXPECT_FALSE(undoEntry(app).enabled);
}

TEST_F(History_Commands, AnUploadIsOneStep) {
    form.Last_Upload.changes = {{{1, 1, 2}, "10", "15"}, {{1, 2, 2}, "20", "25"}};
    document.Fields(1).Cells(1, 2).Value = "15";
    document.Fields(1).Cells(2, 2).Value = "25";
    noteUpload(app);
    EXPECT_EQ(undoEntry(app).caption, "Undo upload of 2 values");
    EXPECT_THAT(form.Last_Upload.changes, IsEmpty());
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1) + " " + value(2), "10 20");
}

TEST_F(History_Commands, ACellThatGotAnotherValueKeepsIt) {
    takeValues(app, {{{1, 1, 2}, "11", {}, true}, {{1, 2, 2}, "21", {}, true}}, "paste of 2 values");
    document.Fields(1).Cells(2, 2).Value = "77";
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1) + " " + value(2), "10 77");
    EXPECT_TRUE(form.Dirty);
    const Bar_Line* line = mainForm.base.bar.find("cells that a step lost");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text,
              "Undo paste of 2 values: Inputs, row 2, Value got another value since, and keeps it.");
}

TEST_F(History_Commands, AStepOfWhichNothingIsLeftIsDropped) {
    type(1, "11");
    document.Fields(1).Cells(1, 2).Value = "77";
    EXPECT_EQ(undoEntry(app).why, "There is nothing to undo.");
}

TEST_F(History_Commands, AnotherDocumentHasNoSteps) {
    type(1, "11");
    answer(Msgb_Code_No);
    openFile(app, "/home/site7.abc", false);
    EXPECT_FALSE(undoEntry(app).enabled);
}

TEST_F(History_Commands, WhileTheControllerHasAPartInItTheyAreOff) {
    type(1, "11");
    form.Online = true;
    EXPECT_EQ(undoEntry(app).why, "The window is online: disconnect first.");
    EXPECT_FALSE(undoEntry(app).enabled);
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1), "11");
    form.Online = false;
    for (bool* const busy : {&form.Comm_Active, &form.Upload_Active, &form.Download_Active}) {
        *busy = true;
        EXPECT_EQ(undoEntry(app).why, "A transfer is going on.");
        *busy = false;
    }
    document.Read_Only = true;
    EXPECT_EQ(redoEntry(app).why, "The document is read-only.");
    document.Read_Only = false;
    state.modelEmptied = true;
    EXPECT_EQ(undoEntry(app).why, "The document was emptied when Open began.");
    state.modelEmptied = false;
    form.Document_Open = false;
    EXPECT_EQ(undoEntry(app).why, "No document is open.");
}

TEST_F(History_Commands, ALiveValueIsNoStepAndNoWayBackToTheFile) {
    type(1, "11");
    form.Online = true;
    document.Fields(1).Cells(0, 2).Column_Type = "TEXT";
    document.Fields(1).Cells(2, 2).Address = "2";
    type(2, "21");
    form.Online = false;
    EXPECT_EQ(undoEntry(app).caption, "Undo change of Inputs, low");
    MNU_Undo_Click(app);
    EXPECT_TRUE(form.Dirty);
}

TEST_F(History_Commands, TheBarsWayBackIsAStepToo) {
    document.Fields(1).Cells(0, 2).Column_Type = "NUMERIC";
    type(1, "letters");
    EXPECT_EQ(value(1), "0");
    mainForm.base.bar.lines().front().buttons.front().press();
    EXPECT_EQ(value(1), "10");
    EXPECT_EQ(undoEntry(app).caption, "Undo return of Inputs, low");
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1), "0");
    MNU_Undo_Click(app);
    EXPECT_EQ(value(1), "10");
}

} // namespace
} // namespace zorvane::app
