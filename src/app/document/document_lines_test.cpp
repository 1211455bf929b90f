// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/document/document_lines.h"
#include "app/document/open_steps.h"
#include "app/document/recover_command.h"
#include "app/document/recovery_keeper.h"
#include "app/form_life.h"
#include "app/testing/app_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::smallDocument;
using testing::ElementsAre;
using testing::IsEmpty;

struct DocumentLines : testing::Test, App_Bench {
    DocumentLines() {
        openFile(app, "/home/site7.abc", false);
        edit(1, "11");
    }
    [[nodiscard]] std::vector<std::string> lines() {
        std::vector<std::string> texts;
        for (const Bar_Line& line : mainForm.messageBar().lines())
            texts.push_back(line.text);
        return texts;
    }
    [[nodiscard]] std::vector<std::string> buttons() {
        std::vector<std::string> captions;
        for (const Bar_Button& button : mainForm.messageBar().lines().at(0).buttons)
            captions.push_back(button.caption);
        return captions;
    }
    void press(std::size_t button) { mainForm.messageBar().lines().at(0).buttons.at(button).press(); }
    void openOther() {
        files.put("/home/other.abc", smallDocument("50", "60"));
        choose("/home/other.abc");
        MNU_Open_Click(app);
    }
};

// A save.

TEST_F(DocumentLines, ASaveThatCutTheFileIsTold) {
    files.failAfter(30);
    MNU_Save_Click(app);
    EXPECT_THAT(lines(), ElementsAre("/home/SITE7.ABC could not be saved: Disk full. The file holds only the "
                                     "beginning of it. The file as it was before is kept. A whole copy of "
                                     "the document is kept."));
    EXPECT_EQ(mainForm.messageBar().lines()[0].kind, Bar_Kind::Warning);
    EXPECT_THAT(buttons(), ElementsAre("Save As...", "Recover..."));
    journal.clear();
    press(0);
    press(1);
    EXPECT_THAT(journal.lines(), ElementsAre("chosen MNU_Saveas", "chosen MNU_Recover"));
}

TEST_F(DocumentLines, ASaveThatLeftTheFileAloneIsToldAsThat) {
    files.refuse("/home/site7.abc");
    MNU_Save_Click(app);
    EXPECT_THAT(lines(), ElementsAre("/home/SITE7.ABC could not be saved: Permission denied. The file is as "
                                     "it was. A whole copy of the document is kept."));
}

TEST_F(DocumentLines, ASaveThatKeptNoCopySaysSo) {
    files.failAfter(0);
    folder.full = true;
    filesBefore.full = true;
    MNU_Save_Click(app);
    EXPECT_THAT(lines(), ElementsAre("/home/SITE7.ABC could not be saved: Disk full. The file holds only the "
                                     "beginning of it. No copy of the document could be kept: save it "
                                     "elsewhere."));
}

TEST_F(DocumentLines, AGoodSaveTakesTheLineBack) {
    files.failAfter(0);
    MNU_Save_Click(app);
    files.failAfter(doubles::Memory_Files::noLimit);
    MNU_Save_Click(app);
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(DocumentLines, ASaveAsThatFailedSaysWhatTheDocumentIsCalledNow) {
    choose("/nowhere/site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_THAT(lines(),
                ElementsAre("/nowhere/site8.abc could not be saved: Path not found. No file was made. "
                            "A whole copy of the document is kept. The document in the window has "
                            "that file's name now, and Save writes there."));
}

TEST_F(DocumentLines, ARefusedSaveAsSaysWhatTheDocumentIsCalledNow) {
    files.put("/home/default.abc", "factory");
    choose("/home/default.abc");
    MNU_Saveas_Click(app);
    EXPECT_THAT(lines(),
                ElementsAre("Save As was refused, and /home/default.abc is as it was. The document in "
                            "the window has that name now: Save stays off until Save As gives it "
                            "another."));
    EXPECT_THAT(buttons(), ElementsAre("Save As...", "Recover..."));
}

// Open and Close that were left half-way.

TEST_F(DocumentLines, AnOpenThatWasCancelledSaysWhatIsLeftInTheWindow) {
    answer(Msgb_Code_Cancel);
    openOther();
    EXPECT_THAT(lines(),
                ElementsAre("Open was cancelled when it had emptied SITE7.ABC already: the window still "
                            "shows its values, but they can't be saved or sent any more. All of it is "
                            "kept in the copy \"before Open\"."));
    EXPECT_THAT(buttons(), ElementsAre("Recover..."));
    answer(Msgb_Code_No);
    openOther();
    EXPECT_THAT(lines(), IsEmpty()) << "the document is gone";
}

TEST_F(DocumentLines, ASaveOfAnEmptiedDocumentIsTold) {
    answer(Msgb_Code_Cancel);
    openOther();
    MNU_Save_Click(app);
    EXPECT_EQ(lines().at(0),
              "/home/SITE7.ABC could not be saved: Subscript out of range. The file holds only "
              "the beginning of it. The file as it was before is kept. The document in the "
              "window was emptied when Open began.");
    EXPECT_THAT(buttons(), ElementsAre("Recover..."));
    EXPECT_EQ(keptBytes(filesBefore.texts.begin()->second), smallDocument("10", "20"));
}

TEST_F(DocumentLines, AnOpenWhoseSaveAsFailedSaysWhereTheChangesAre) {
    answer(Msgb_Code_Yes);
    choose("/home/new.abc");
    files.put("/home/other.abc", smallDocument("50", "60"));
    mainForm.scriptedDialog.answers.push_front({"/home/other.abc", 0, false});
    MNU_Open_Click(app);
    EXPECT_THAT(lines(), ElementsAre("SITE7.ABC was closed with changes that no file has. They are kept in a "
                                     "copy."));
    EXPECT_THAT(buttons(), ElementsAre("Recover..."));
}

TEST_F(DocumentLines, ACloseWhoseSaveAsWasCancelledSaysWhereTheChangesAre) {
    answer(Msgb_Code_Yes);
    MNU_Close_Click(app);
    EXPECT_THAT(lines(), ElementsAre("SITE7.ABC was closed with changes that no file has. They are kept in a "
                                     "copy."));
}

TEST_F(DocumentLines, ACloseAfterASaveThatFailedSaysWhereTheChangesAre) {
    files.failAfter(0);
    MNU_Save_Click(app);
    MNU_Close_Click(app);
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(lines(), ElementsAre("SITE7.ABC was closed with changes that no file has. They are kept in a "
                                     "copy."));
    EXPECT_EQ(recovery.list().size(), 2U) << "and the file as it was";
}

TEST_F(DocumentLines, WhoSaidNoOrSavedHearsNothing) {
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    openFile(app, "/home/site7.abc", false);
    edit(1, "12");
    answer(Msgb_Code_Yes);
    choose("/home/site7.abc");
    MNU_Close_Click(app);
    EXPECT_THAT(lines(), IsEmpty());
}

// Copies at the start.

TEST_F(DocumentLines, CopiesAreToldAtTheStart) {
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    TMR_Inicial_ZTP_Timer(app);
    EXPECT_THAT(lines(), ElementsAre("A copy of unsaved changes is kept: SITE7.ABC, 2026-11-21 03:20:05."));
    EXPECT_THAT(buttons(), ElementsAre("Recover..."));
    EXPECT_EQ(mainForm.messageBar().lines()[0].kind, Bar_Kind::Note);
    time = "2026-11-21 04:00:00";
    openFile(app, "/home/site7.abc", false);
    edit(1, "12");
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    TMR_Inicial_ZTP_Timer(app);
    EXPECT_THAT(lines(),
                ElementsAre("2 copies of unsaved changes are kept, the newest: SITE7.ABC, 2026-11-21 "
                            "04:00:00."));
}

TEST_F(DocumentLines, FilesFromBeforeASaveAreNoNewsAtTheStart) {
    MNU_Save_Click(app);
    ASSERT_EQ(recovery.list().size(), 1U);
    TMR_Inicial_ZTP_Timer(app);
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(DocumentLines, TheLastCopyThatIsOpenedTakesTheLineAlong) {
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    TMR_Inicial_ZTP_Timer(app);
    const Recovery_Entry entry = recoveryEntries(app).at(0);
    files.put(recovery.path(entry), folder.texts.at(entry.file));
    openRecoveryCopy(app, entry);
    EXPECT_THAT(lines(), IsEmpty());
}

// A file from before a save.

TEST_F(DocumentLines, AFileFromBeforeASaveOpensAsADocumentOfItsOwnAndStays) {
    MNU_Save_Click(app);
    const Recovery_Entry entry = recoveryEntries(app).at(0);
    ASSERT_TRUE(entry.beforeSave);
    files.put(recovery.path(entry), filesBefore.texts.at(entry.file));
    openRecoveryCopy(app, entry);
    EXPECT_EQ(value(1), "10");
    EXPECT_TRUE(document.No_Place);
    choose("/home/back.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(files.text("/home/back.abc"), smallDocument("10", "20"));
    EXPECT_TRUE(filesBefore.texts.contains(entry.file));
}

} // namespace
} // namespace zorvane::app
