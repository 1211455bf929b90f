// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/testing/app_bench.h"
#include "template/services/native_files.h"
#include "template/testing/temporary_folder.h"

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

using Lines = std::vector<std::string>;

const std::string question = "Msgb 35 \"Zorvane\": \"Do you want to save this file?\"";
const std::string notWritten =
    "Msgb 64 \"Zorvane\": \"The Zorvane can't write the file, please verify the read only properties...\"";

const Lines closing = {
    "Frame2 hidden",
    "Frame3 hidden",
    "FLX_Configuration 0x2 at row -1",
    "FLX_Settings 0x2 at row -1",
    "panel 1 = \"\"",
    "panel 2 = \"\"",
    "caption = \"Zorvane\"",
    "MNU_Close disabled",
    "MNU_Download disabled",
    "MNU_Upload disabled",
    "MNU_Close disabled",
    "MNU_Save disabled",
    "MNU_Saveas disabled",
    "MNU_Disconnect disabled",
    "MNU_Print disabled",
    "MNU_PrintAll disabled",
    "PicLineHoriz hidden",
    "panel 1 = \"\"",
    "panel 2 = \"\"",
    "panel 4 = \"\"",
    "panel 5 = \"\"",
    "panel 6 = \"\"",
};

Lines operator+(Lines first, const Lines& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

struct DocumentCommands : testing::Test, App_Bench {
    DocumentCommands() {
        openFile(app, "/home/site7.abc", false);
        journal.clear();
    }
    void editQuietly(const std::string& value) {
        edit(1, value);
        journal.clear();
    }
};

using CloseCommand = DocumentCommands;
using SaveCommand = DocumentCommands;
using SaveAsCommand = DocumentCommands;

// Title.

TEST_F(DocumentCommands, TheTitleNamesTheDocumentInLowerCaseWithAMarkWhileItHasChanges) {
    EXPECT_EQ(mainForm.base.caption(), "site7.abc - Zorvane");
    edit(1, "11");
    EXPECT_EQ(mainForm.base.caption(), "* site7.abc - Zorvane");
    MNU_Save_Click(app);
    EXPECT_EQ(mainForm.base.caption(), "site7.abc - Zorvane");
    MNU_Close_Click(app);
    EXPECT_EQ(mainForm.base.caption(), "Zorvane");
}

// Close.

TEST_F(CloseCommand, WithoutChangesAsksNothing) {
    MNU_Close_Click(app);
    EXPECT_EQ(journal.lines(), Lines{"previews closed"} + closing);
    EXPECT_FALSE(form.Document_Open);
    EXPECT_FALSE(form.Dirty);
    EXPECT_EQ(document.File_Stem + document.File_Extension + document.File_Folder, "");
    EXPECT_EQ(document.Controller_Model, "");
    EXPECT_EQ(document.Field_Count, 0);
    EXPECT_EQ(document.Config_Column_Count, 0);
    EXPECT_FALSE(document.Numeric_Rows);
    EXPECT_EQ(document.Fields.upperBound(), 0);
    EXPECT_EQ(state.Filter_Text, "");
}

TEST_F(CloseCommand, WithoutADocumentDoesNothing) {
    MNU_Close_Click(app);
    journal.clear();
    MNU_Close_Click(app);
    EXPECT_THAT(journal.lines(), ElementsAre("previews closed"));
}

TEST_F(CloseCommand, CancelKeepsTheDocument) {
    editQuietly("11");
    answer(Msgb_Code_Cancel);
    MNU_Close_Click(app);
    EXPECT_EQ(journal.lines(), (Lines{"previews closed", "copy 20261121032005-1-1.ABC", question}));
    EXPECT_EQ(value(1), "11");
    EXPECT_TRUE(form.Dirty);
    EXPECT_TRUE(form.Document_Open);
}

TEST_F(CloseCommand, NoClosesWithoutSaving) {
    editQuietly("11");
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    EXPECT_EQ(journal.lines(), (Lines{"previews closed", "copy 20261121032005-1-1.ABC", question}) + closing);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("10", "20"));
}

TEST_F(CloseCommand, YesSavesAsAndCloses) {
    editQuietly("11");
    answer(Msgb_Code_Yes);
    choose("/home/site7.abc");
    MNU_Close_Click(app);
    const Lines lines = journal.lines();
    EXPECT_EQ(lines[2], question);
    EXPECT_EQ(lines[3], "ShowSave \"Save as\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 4");
    EXPECT_EQ(Lines(lines.end() - static_cast<std::ptrdiff_t>(closing.size()), lines.end()), closing);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("11", "20"));
}

TEST_F(CloseCommand, ASaveAsDialogThatIsCancelledIsNoFailedSaveAndTheDocumentCloses) {
    editQuietly("11");
    answer(Msgb_Code_Yes);
    MNU_Close_Click(app);
    EXPECT_FALSE(form.Document_Open);
    EXPECT_THAT(messages(), ElementsAre(question));
}

TEST_F(CloseCommand, AFailedSaveIsToldAndTheDocumentStays) {
    editQuietly("11");
    files.failAfter(10);
    answer(Msgb_Code_Yes);
    choose("/home/site8.abc");
    bool ok = false;
    PRO_Cierra_Documento(app, ok);
    EXPECT_TRUE(ok) << "a caller that goes on loses the changes";
    EXPECT_EQ(messages(),
              (Lines{question,
                     "Msgb 0 \"Zorvane\": \"Can't Save file : path/file error or directory is read "
                     "only.\r\nExtra info: Disk full\"",
                     notWritten}));
    EXPECT_TRUE(form.Dirty);
    EXPECT_TRUE(form.Document_Open);
    EXPECT_EQ(value(1), "11");
}

TEST_F(CloseCommand, EndsAPollingSessionBeforeItSaves) {
    editQuietly("11");
    form.Online = true;
    answer(Msgb_Code_Yes);
    MNU_Close_Click(app);
    const Lines lines = journal.lines();
    EXPECT_EQ(Lines(lines.begin() + 2, lines.begin() + 10),
              (Lines{question, "MNU_Disconnect disabled", "TMR_Actualiza_online off", "link StopScan",
                     "link ClosePort", "panel 2 = \"\"", "link EndSession",
                     "ShowSave \"Save as\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 4"}));
}

TEST_F(CloseCommand, CancelLeavesAPollingSessionAlone) {
    editQuietly("11");
    form.Online = true;
    answer(Msgb_Code_Cancel);
    MNU_Close_Click(app);
    EXPECT_TRUE(form.Online);
    EXPECT_THAT(journal.beginningWith("link"), IsEmpty());
}

// Save.

TEST_F(SaveCommand, WritesTheFileThatWasOpened) {
    editQuietly("11");
    MNU_Save_Click(app);
    EXPECT_EQ(journal.lines(),
              (Lines{"panel 4 = \"Saving file SITE7.ABC ...\"", "copy 20261121032005-1-1.ABC",
                     "create /home/SITE7.ABC", "wait 1000 ms", "copy removed 20261121032005-1-1.ABC",
                     "caption = \"site7.abc - Zorvane\"", "MNU_Save disabled", "panel 4 = \"\""}));
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("11", "20"));
    EXPECT_FALSE(files.text("/home/SITE7.ABC")) << "no second file beside it";
    EXPECT_FALSE(form.Dirty);
}

TEST_F(SaveCommand, SaysNothingOfAFailureAndTheTitleGoesCleanEvenSo) {
    editQuietly("11");
    files.refuse("/home/site7.abc");
    MNU_Save_Click(app);
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_TRUE(document.Save_Failed);
    EXPECT_FALSE(form.Dirty);
    EXPECT_EQ(mainForm.base.caption(), "site7.abc - Zorvane");
    EXPECT_EQ(value(1), "11") << "the document stays in memory";
    EXPECT_EQ(folder.texts.size(), 1U) << "and in a recovery copy";
}

TEST_F(SaveCommand, ADocumentThatIsClosedMeanwhileLeavesThePlainCaption) {
    mainForm.base.duringPause = [this](std::int32_t) { MNU_Close_Click(app); };
    MNU_Save_Click(app);
    EXPECT_EQ(mainForm.base.caption(), "Zorvane");
    EXPECT_EQ(mainForm.panel(Panel::Message), "");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
}

TEST_F(SaveCommand, AnotherDocumentThatIsOpenedMeanwhileKeepsItsStatus) {
    files.put("/home/long.abc", doubles::fileText({"[Field_1_Default]", "ROW_1=low,77,1"}));
    mainForm.base.duringPause = [this](std::int32_t) { openFile(app, "/home/long.abc", false); };
    MNU_Save_Click(app);
    EXPECT_EQ(mainForm.panel(Panel::Message), "This file fit on the template.");
    EXPECT_EQ(mainForm.base.caption(), "Zorvane");
}

TEST_F(SaveCommand, WidthsThatTheUserDraggedStayOutOfTheFile) {
    lower.setColWidth(0, 1234);
    MNU_Save_Click(app);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("10", "20"));
}

// Save As.

TEST_F(SaveAsCommand, RunsItsStepsInTheirOrder) {
    editQuietly("11");
    choose("/home/Site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(journal.lines(),
              (Lines{"ShowSave \"Save as\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 4",
                     "panel 4 = \"Saving file Site8.abc ...\"", "form disabled",
                     "copy 20261121032005-1-1.ABC", "panel 1 = \"\"", "MNU_Save enabled",
                     "create /home/Site8.abc", "copy removed 20261121032005-1-1.ABC",
                     "caption = \"site8.abc - Zorvane\"", "wait 1000 ms", "form enabled", "panel 4 = \"\""}));
    EXPECT_EQ(files.text("/home/Site8.abc"), smallDocument("11", "20"));
    EXPECT_EQ(document.File_Stem, "SITE8");
}

TEST_F(SaveAsCommand, TheDialogStartsWithoutANameAtTheFirstType) {
    mainForm.scriptedDialog.FilterIndex = 3;
    mainForm.scriptedDialog.FileName = "/home/old.abc";
    document.Save_Failed = true;
    MNU_Saveas_Click(app);
    EXPECT_THAT(journal.lines(),
                ElementsAre("ShowSave \"Save as\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 4"));
    EXPECT_EQ(mainForm.scriptedDialog.FileName, "");
    EXPECT_TRUE(document.Save_Failed) << "a cancelled dialog leaves it as it was";
}

TEST_F(SaveAsCommand, CarriesTheWidthsThatTheUserDragged) {
    ASSERT_EQ(document.Selected_Field, 2);
    lower.setColWidth(0, 1234);
    choose("/home/site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(document.Fields(2).Cells(0, 1).Width, 1234);
    EXPECT_THAT(*files.text("/home/site8.abc"),
                testing::EndsWith("[Default_2_Columns]\r\nCOL_1_WIDTH=1234\r\nCOL_2_WIDTH=700\r\n\r\n"));
}

TEST_F(SaveAsCommand, ANameWithoutAnExtensionKeepsTheTypeOfTheDocument) {
    choose("/home/plain");
    MNU_Saveas_Click(app);
    EXPECT_EQ(document.File_Stem, "plain");
    EXPECT_EQ(document.File_Extension, "ABC");
    EXPECT_TRUE(files.text("/home/plain"));
}

TEST_F(SaveAsCommand, AFailureIsToldWithItsReason) {
    editQuietly("11");
    choose("/nowhere/site8.abc");
    MNU_Saveas_Click(app);
    const Lines lines = journal.lines();
    EXPECT_EQ(Lines(lines.end() - 3, lines.end()),
              (Lines{"copy 20261121032005-1-1.ABC", "form enabled",
                     "Msgb 0 \"Zorvane\": \"Can't Save file : path/file error or directory is read only.\r\n"
                     "Extra info: Path not found\""}));
    EXPECT_TRUE(document.Save_Failed);
    EXPECT_TRUE(form.Dirty);
    EXPECT_EQ(mainForm.base.caption(), "* site7.abc - Zorvane");
    EXPECT_EQ(mainForm.panel(Panel::Message), "Saving file site8.abc ...");
}

TEST_F(SaveAsCommand, AFullDiskIsToldAndNothingIsSaidToBeSaved) {
    editQuietly("11");
    files.failOnClose();
    choose("/home/site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_THAT(messages(),
                ElementsAre("Msgb 0 \"Zorvane\": \"Can't Save file : path/file error or directory is read "
                            "only.\r\nExtra info: Disk full\""));
    EXPECT_TRUE(form.Dirty);
    EXPECT_EQ(value(1), "11");
}

// The factory file of a model.

TEST_F(SaveAsCommand, OverAnExistingFactoryFileIsRefused) {
    files.put("/home/Default.abc", "factory");
    editQuietly("11");
    choose("/home/default");
    MNU_Saveas_Click(app);
    EXPECT_EQ(document.File_Stem, "default")
        << "without a dot the name stays as spelt, and isn't the factory file";
    choose("/home/default.abc");
    journal.clear();
    MNU_Saveas_Click(app);
    EXPECT_EQ(journal.lines(),
              (Lines{"ShowSave \"Save as\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 4",
                     "panel 4 = \"Saving file default.abc ...\"", "form disabled",
                     "copy 20261121032005-1-1.ABC", "panel 1 = \"READ ONLY\"", "MNU_Save disabled",
                     "panel 4 = \"Default file can't be overwritted...\"",
                     "Msgb 64 \"Zorvane\": \"Default file can't be overwritted!\"", "panel 4 = \"\"",
                     "form enabled"}));
    EXPECT_TRUE(document.Save_Failed);
    EXPECT_EQ(files.text("/home/Default.abc"), "factory");
}

TEST_F(SaveAsCommand, CreatesAFactoryFileOnceAndSaveStaysOffForIt) {
    choose("/home/default.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(files.text("/home/default.abc"), smallDocument("10", "20"));
    EXPECT_EQ(mainForm.panel(Panel::ReadOnly), "READ ONLY");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    edit(1, "11");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save)) << "it changes in memory only";
    choose("/home/site9.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(mainForm.panel(Panel::ReadOnly), "");
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
}

// Letter case of names on a file system that minds it.

struct LetterCase : testing::TestWithParam<const char*> {};

TEST_P(LetterCase, SaveWritesTheFileThatWasOpenedAndNoSecondOneAppears) {
    const doubles::Temporary_Folder home;
    Native_Files native;
    App_Bench bench;
    const auto write = [&](const std::string& name, const std::string& text) {
        const auto writer = native.create(home.path() + "/" + name);
        writer->writeLine(text.substr(0, text.size() - 2));
        writer->close();
    };
    write("Kvrt207d.Ztp", doubles::smallTemplate());
    write(GetParam(), smallDocument("10", "20"));
    const App_Context app{bench.app.grids, bench.mainForm, native,      bench.settings,
                          bench.widths,    bench.recovery, bench.state, home.path()};
    openFile(app, home.path() + "/" + GetParam(), false);
    EXPECT_EQ(bench.value(1), "10");
    bench.edit(1, "11");
    MNU_Save_Click(app);
    EXPECT_EQ(native.read(home.path() + "/" + GetParam()), smallDocument("11", "20"));
    EXPECT_THAT(native.list(home.path()), ElementsAre("Kvrt207d.Ztp", GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Spellings, LetterCase,
                         testing::Values("site7.kvrt207d", "SITE7.KVRT207D", "Site7.Kvrt207d"));

TEST_F(DocumentCommands, ADocumentOpenedInTheSecondOfASaveKeepsItsOwnMark) {
    edit(1, "11");
    mainForm.base.duringPause = [this](std::int32_t) {
        mainForm.base.duringPause = nullptr;
        answer(Msgb_Code_No);
        openFile(app, "/home/site7.abc", false);
        edit(2, "22");
        journal.clear();
    };
    MNU_Save_Click(app);
    EXPECT_TRUE(form.Dirty);
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(DocumentCommands, ADocumentClosedInTheSecondOfASaveTakesItsPanelAlong) {
    mainForm.base.duringPause = [this](std::int32_t) {
        bool ok = true;
        PRO_Cierra_Documento(app, ok);
        mainForm.setPanel(Panel::Message, "Saving file SITE7.ABC ...");
        journal.clear();
    };
    MNU_Save_Click(app);
    EXPECT_THAT(journal.lines(), ElementsAre("panel 4 = \"\""));
}

} // namespace
} // namespace zorvane::app
