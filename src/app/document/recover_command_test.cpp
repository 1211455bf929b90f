// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/document/recover_command.h"
#include "app/document/recovery_keeper.h"
#include "app/testing/app_bench.h"
#include "template/testing/document_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::smallDocument;
using testing::ElementsAre;
using testing::IsEmpty;

struct RecoverCommand : testing::Test, App_Bench {
    /// Opens a document, changes it and throws the change away.
    void leaveCopy(const std::string& value) {
        openFile(app, "/home/site7.abc", false);
        edit(1, value);
        answer(Msgb_Code_No);
        MNU_Close_Click(app);
    }
    void recover(std::size_t which = 0) {
        const Recovery_Entry entry = recoveryEntries(app).at(which);
        files.put(recovery.path(entry), folder.texts.at(entry.file));
        openRecoveryCopy(app, entry);
    }
};

TEST_F(RecoverCommand, OpensTheCopyWithEveryValueUnderTheDocumentsOwnName) {
    openFile(app, "/home/site7.abc", false);
    edit(1, "11");
    const std::string before = doubles::documentText(document);
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    recover();
    EXPECT_EQ(doubles::documentText(document), before);
    EXPECT_EQ(mainForm.base.caption(), "* site7.abc - Zorvane");
    EXPECT_EQ(document.File_Folder, "");
    EXPECT_TRUE(form.Dirty);
    EXPECT_TRUE(form.Document_Open);
    EXPECT_FALSE(document.Read_Only);
}

TEST_F(RecoverCommand, SaveStaysOffUntilSaveAsGaveTheDocumentAPlace) {
    leaveCopy("11");
    recover();
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    edit(1, "12");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    choose("/home/back.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(files.text("/home/back.abc"), smallDocument("12", "20"));
    edit(1, "13");
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    MNU_Save_Click(app);
    EXPECT_EQ(files.text("/home/back.abc"), smallDocument("13", "20"));
}

TEST_F(RecoverCommand, SaveWithoutAPlaceGoesTheWayOfSaveAs) {
    leaveCopy("11");
    recover();
    choose("/home/back.abc");
    journal.clear();
    MNU_Save_Click(app);
    EXPECT_EQ(journal.lines().front(), "ShowSave \"Save as\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 4");
    EXPECT_EQ(files.text("/home/back.abc"), smallDocument("11", "20"));
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("10", "20"));
}

TEST_F(RecoverCommand, TheCopyIsTheDocumentsOwnFromThenOnAndGoesWithAGoodSave) {
    leaveCopy("11");
    recover();
    EXPECT_THAT(recoveryEntries(app), IsEmpty());
    edit(1, "12");
    keepCopy(app, "changed");
    ASSERT_EQ(folder.texts.size(), 1U);
    EXPECT_EQ(withoutHeader(folder.texts.begin()->second), smallDocument("12", "20"));
    choose("/home/back.abc");
    MNU_Saveas_Click(app);
    EXPECT_THAT(folder.texts, IsEmpty());
}

TEST_F(RecoverCommand, ADocumentWithChangesIsAskedAboutAndKeptFirst) {
    leaveCopy("11");
    openFile(app, "/home/site7.abc", false);
    edit(1, "33");
    answer(Msgb_Code_No);
    journal.clear();
    recover();
    EXPECT_EQ(journal.beginningWith("Msgb").size(), 1U);
    EXPECT_EQ(value(1), "11");
    ASSERT_EQ(folder.texts.size(), 2U);
    EXPECT_EQ(recoveryEntries(app).at(0).why, "before Open");
}

TEST_F(RecoverCommand, CancelKeepsTheCopy) {
    leaveCopy("11");
    openFile(app, "/home/site7.abc", false);
    edit(1, "33");
    answer(Msgb_Code_Cancel);
    recover();
    EXPECT_EQ(folder.texts.size(), 2U);
    EXPECT_EQ(mainForm.base.caption(), "* site7.abc - Zorvane");
    EXPECT_FALSE(document.No_Place);
}

TEST_F(RecoverCommand, ADocumentEmptiedByACancelledOpenComesBack) {
    openFile(app, "/home/site7.abc", false);
    edit(1, "11");
    answer(Msgb_Code_Cancel);
    choose("/home/site7.abc");
    MNU_Open_Click(app);
    ASSERT_EQ(document.Fields.upperBound(), 0);
    answer(Msgb_Code_No);
    recover();
    EXPECT_EQ(value(1), "11");
    EXPECT_TRUE(form.Dirty);
}

TEST_F(RecoverCommand, ACopyWhoseTemplateIsGoneStaysAsItIs) {
    leaveCopy("11");
    const std::string copy = folder.texts.begin()->second;
    app.applicationFolder = "/elsewhere";
    recover();
    EXPECT_EQ(messages().back(),
              "Msgb 16 \"Zorvane\": \"The ZTP file (/elsewhere/ABC.ZTP) was not found in: \r\n/elsewhere\"");
    keepCopy(app, "changed");
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    EXPECT_EQ(folder.texts.begin()->second, copy);
    EXPECT_EQ(folder.texts.size(), 1U);
}

TEST_F(RecoverCommand, ACopyThatReadsBackDifferentlyStaysBesideTheDocumentsOwn) {
    leaveCopy("a,b");
    const std::string copy = folder.texts.begin()->second;
    recover();
    EXPECT_EQ(mainForm.panel(Panel::Message), "This file fit on the template.");
    EXPECT_THAT(journal.beginningWith("create"), IsEmpty()) << "a copy is never brought up to date";
    keepCopy(app, "changed");
    EXPECT_EQ(folder.texts.size(), 2U);
    EXPECT_EQ(folder.texts.begin()->second, copy);
}

TEST_F(RecoverCommand, ACopyThatIsGoneIsToldAndNothingElseHappens) {
    leaveCopy("11");
    openFile(app, "/home/site7.abc", false);
    journal.clear();
    openRecoveryCopy(app, recoveryEntries(app).at(0));
    EXPECT_THAT(journal.lines(),
                ElementsAre("Msgb 64 \"Zorvane\": \"This recovery copy isn't there any more.\""));
    EXPECT_EQ(value(1), "10");
}

TEST_F(RecoverCommand, TheOldestOfFiftyIsStillThereWhenItIsChosenWithChangesAtHand) {
    for (int k = 10; k < 60; ++k) {
        time = "2026-11-21 03:20:" + std::to_string(k);
        leaveCopy(std::to_string(k));
    }
    openFile(app, "/home/site7.abc", false);
    edit(1, "99");
    time = "2026-11-21 04:00:00";
    answer(Msgb_Code_No);
    recover(recoveryLimit - 1);
    EXPECT_EQ(value(1), "10");
    EXPECT_TRUE(folder.texts.contains("20261121032010-1-1.ABC"));
}

TEST_F(RecoverCommand, AFactoryFileComesBackUnderItsNameWithSaveOff) {
    files.put("/home/default.abc", smallDocument("10", "20"));
    openFile(app, "/home/default.abc", false);
    edit(1, "11");
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    recover();
    edit(1, "12");
    EXPECT_EQ(mainForm.base.caption(), "* default.abc - Zorvane");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
}

} // namespace
} // namespace zorvane::app
