// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/form_life.h"
#include "app/testing/app_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::fileText;
using doubles::smallDocument;
using doubles::smallTemplate;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using Lines = std::vector<std::string>;

struct OpenCommand : testing::Test, App_Bench {
    void open(const std::string& path, bool readOnly = false) {
        choose(path, readOnly);
        MNU_Open_Click(app);
    }
    /// A template of the type KVRT9, whose first two fields stood in the other order once.
    void putKvrtTemplate() {
        files.put("/app/KVRT9.ZTP",
                  fileText({"[PORT_CONFIGURATION]", "HOLDINGREGISTERSBLOCK_1=1-8", "[CONFIGURATION_COLUMNS]",
                            "CONFIGURATION_NC=2", "[CONFIGURATION_FIELDS]", "FIELD_1_RC=1,3",
                            "FIELD_2_RC=1,8", "FIELD_3_RC=1,3", "FIELD_4_RC=1,4", "[CONFIGURATION_DEFAULT]",
                            "FIELD_1=,a", "FIELD_2=,b", "FIELD_3=,c", "FIELD_4=,d"}));
    }
};

const Lines openingFromEmpty = {
    "ShowOpen \"Open\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 0",
    "setting MainWindow/filtro = ABC Configuration (*.ABC)|*.ABC|",
    "FLX_Settings hidden",
    "Frame2 hidden",
    "Frame3 hidden",
    "Frame2 disabled",
    "panel 1 = \"\"",
    "panel 2 = \"\"",
    "caption = \"Zorvane\"",
    "panel 1 = \"\"",
    "link ClearBlocks",
    "read /app/ABC.ZTP",
    "link AddScanBlock 1 8 False ALWAYS 0",
    "FLX_Configuration 3x2 at row 0",
    "panel 2 = \"Offline\"",
    "FLX_Configuration 3x2 at row 1",
    "MNU_Save disabled",
    "read /home/site7.abc",
    "caption = \"site7.abc - Zorvane\"",
    "panel 4 = \"\"",
    "MNU_Download enabled",
    "MNU_Upload enabled",
    "MNU_Close enabled",
    "MNU_Saveas enabled",
    "MNU_Print enabled",
    "MNU_PrintAll enabled",
    "MNU_Close enabled",
    "FLX_Settings shown",
    "FLX_Settings 3x2 at row 2",
    "Frame2 shown",
    "Frame3 shown",
    "Frame2 enabled",
    // the font size
    "Frame2 hidden",
    "Frame3 hidden",
    "panel 4 = \"Processing Font size...\"",
    "FLX_Configuration 3x2 at row 0",
    "panel 2 = \"Offline\"",
    "FLX_Configuration 3x2 at row 2",
    "FLX_Settings 2x2 at row 1",
    "previews restarted with 8.25",
    "Frame2 shown",
    "Frame3 shown",
    "panel 4 = \"\"",
};

TEST_F(OpenCommand, RunsItsStepsInTheirOrder) {
    open("/home/site7.abc");
    EXPECT_EQ(journal.lines(), openingFromEmpty);
}

TEST_F(OpenCommand, ReadsTheTemplateAndTheFileOverIt) {
    open("/home/site7.abc");
    EXPECT_EQ(document.Controller_Model, "ABC 100");
    EXPECT_EQ(value(1), "10");
    EXPECT_EQ(value(2), "20");
    EXPECT_EQ(document.Fields(2).Cells(1, 2).Value, "3") << "the template's own, the file says the same";
    EXPECT_TRUE(form.Document_Open);
    EXPECT_FALSE(form.Dirty);
    EXPECT_FALSE(document.Read_Only);
}

TEST_F(OpenCommand, NamesTheDocument) {
    open("/home/site7.abc");
    EXPECT_EQ(document.File_Folder, "/home/");
    EXPECT_EQ(document.File_Stem, "SITE7");
    EXPECT_EQ(document.File_Extension, "ABC");
}

TEST_F(OpenCommand, ShowsTheTableOfTheSelectedField) {
    open("/home/site7.abc");
    EXPECT_EQ(document.Selected_Field, upper.Row());
    EXPECT_EQ(lower.TextMatrix(1, 0), "all") << "the font size moved the selection on by three rows";
}

TEST_F(OpenCommand, AFolderWithoutTemplatesGivesAMessageAndNoDialog) {
    app.applicationFolder = "/empty";
    MNU_Open_Click(app);
    EXPECT_THAT(
        journal.lines(),
        ElementsAre("Msgb 64 \"Zorvane\": \"Does not exist any .ZTP file in this directory: \r\n/empty\""));
}

TEST_F(OpenCommand, OffersATypeForEachTemplateInTheFoldersOrder) {
    files.put("/app/zeta.Ztp", "");
    files.put("/app/beta.ztp ", "");
    files.put("/app/.ZTP", "");
    files.put("/app/readme.txt", "");
    files.put("/app/a.b.ZTP", "");
    MNU_Open_Click(app);
    EXPECT_THAT(
        journal.lines(),
        ElementsAre("ShowOpen \"Open\" ABC Configuration (*.ABC)|*.ABC|beta Configuration (*.beta)|*.beta|"
                    "zeta Configuration (*.zeta)|*.zeta| at 1, flags 0"));
}

TEST_F(OpenCommand, ComesBackToTheTypeLastChosen) {
    files.put("/app/XYZ.ZTP", smallTemplate());
    files.put("/home/b.xyz", "");
    mainForm.scriptedDialog.answers.push_back({"/home/b.xyz", 2});
    MNU_Open_Click(app);
    EXPECT_EQ(settings.texts["Zorvane/MainWindow/filtro"], "XYZ Configuration (*.XYZ)|*.XYZ|");
    mainForm.scriptedDialog.FilterIndex = 1;
    settings.texts["Zorvane/MainWindow/filtro"] = "xyz configuration (*.xyz)|*.xyz|";
    journal.clear();
    MNU_Open_Click(app);
    EXPECT_THAT(journal.lines(),
                ElementsAre("ShowOpen \"Open\" ABC Configuration (*.ABC)|*.ABC|XYZ Configuration "
                            "(*.XYZ)|*.XYZ| at 2, flags 0"));
}

TEST_F(OpenCommand, ATypeBeyondTheListIsntRemembered) {
    mainForm.scriptedDialog.answers.push_back({"/home/site7.abc", 2});
    MNU_Open_Click(app);
    EXPECT_FALSE(settings.texts.contains("Zorvane/MainWindow/filtro"));
}

TEST_F(OpenCommand, ACancelledDialogLeavesItsTypesForTheNextOne) {
    MNU_Open_Click(app);
    journal.clear();
    MNU_Open_Click(app);
    EXPECT_THAT(journal.lines(),
                ElementsAre("ShowOpen \"Open\" ABC Configuration (*.ABC)|*.ABC|ABC Configuration "
                            "(*.ABC)|*.ABC| at 1, flags 0"));
}

TEST_F(OpenCommand, ACancelledDialogLeavesTheDocumentAsItIs) {
    open("/home/site7.abc");
    edit(1, "11");
    journal.clear();
    MNU_Open_Click(app);
    EXPECT_EQ(value(1), "11");
    EXPECT_TRUE(form.Dirty);
    EXPECT_EQ(mainForm.scriptedDialog.FileName, "");
    EXPECT_EQ(journal.lines().size(), 1U) << "nothing but the dialog";
}

TEST_F(OpenCommand, ANameThatDoesntExistOpensTheDialogAgain) {
    choose("/home/none.abc");
    choose("");
    choose("/home/site7.abc");
    MNU_Open_Click(app);
    EXPECT_EQ(journal.beginningWith("ShowOpen").size(), 3U);
    EXPECT_EQ(value(1), "10");
}

TEST_F(OpenCommand, ATickMarksTheDocumentReadOnlyAndSaveAsStaysPossible) {
    open("/home/site7.abc", true);
    EXPECT_TRUE(document.Read_Only);
    EXPECT_EQ(mainForm.panel(Panel::ReadOnly), "READ ONLY");
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Saveas));
    open("/home/site7.abc", false);
    EXPECT_FALSE(document.Read_Only);
    EXPECT_EQ(mainForm.panel(Panel::ReadOnly), "");
}

TEST_F(OpenCommand, TheTemplateIsNamedByTheLastDotTheDocumentCutAtTheFirst) {
    files.put("/app/KVRT207D.ZTP", smallTemplate());
    files.put("/home/abc.def.KVRT207D", smallDocument("5", "6"));
    open("/home/abc.def.KVRT207D");
    EXPECT_THAT(journal.lines(), Contains("read /app/KVRT207D.ZTP"));
    EXPECT_EQ(document.File_Stem, "ABC");
    EXPECT_EQ(document.File_Extension, "DEF.KVRT207D");
    EXPECT_EQ(mainForm.base.caption(), "abc.def.kvrt207d - Zorvane");
    EXPECT_EQ(value(1), "5");
}

TEST_F(OpenCommand, AMissingTemplateIsToldAndTheRestGoesOnWithAnEmptyModel) {
    files.put("/home/site.xyz", smallDocument("1", "2"));
    open("/home/site.xyz");
    EXPECT_EQ(messages(),
              (Lines{"Msgb 16 \"Zorvane\": \"The ZTP file (/app/XYZ.ZTP) was not found in: \r\n/app\""}));
    EXPECT_EQ(document.Field_Count, 0);
    EXPECT_EQ(upper.Rows(), 1);
    EXPECT_TRUE(form.Document_Open);
    EXPECT_EQ(document.File_Stem, "SITE");
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame2));
    EXPECT_EQ(mainForm.panel(Panel::Message), "This file fit on the template.");
}

TEST_F(OpenCommand, AFileWithMoreColumnsThanTheTemplateIsReadAsFarAsItFits) {
    files.put("/home/long.abc", fileText({"[Field_1_Default]", "ROW_1=low,77", "ROW_2=a,b,c",
                                          "[Field_2_Default]", "ROW_1=all,9"}));
    open("/home/long.abc");
    EXPECT_EQ(mainForm.panel(Panel::Message), "This file fit on the template.");
    EXPECT_EQ(value(1), "77");
    EXPECT_EQ(document.Fields(2).Cells(1, 2).Value, "3") << "nothing beyond the line was read";
    EXPECT_EQ(mainForm.base.caption(), "Zorvane");
    EXPECT_THAT(journal.lines(), Not(Contains("caption = \"long.abc - Zorvane\"")));
    EXPECT_FALSE(files.exists("/home/LONG_Updated.ABC"));
}

TEST_F(OpenCommand, AFileOfTheOlderGenerationIsBroughtUpToDate) {
    putKvrtTemplate();
    files.put("/home/old.kvrt9",
              fileText({"[Field_1_Default]", "ROW_1=1,2,3,4,5,6,7,8", "[Field_2_Default]", "ROW_1=x,y,z"}));
    open("/home/old.kvrt9", true);
    const Lines lines = journal.lines();
    const auto from = std::find(lines.begin(), lines.end(), "read /home/old.kvrt9");
    ASSERT_NE(from, lines.end());
    EXPECT_EQ(Lines(from, from + 7),
              (Lines{"read /home/old.kvrt9", "create /home/OLD_Updated.KVRT9", "read /home/OLD.KVRT9",
                     "read /home/OLD_Updated.KVRT9", "caption = \"old_updated.kvrt9 - Zorvane\"",
                     "panel 1 = \"\"", "MNU_Download enabled"}));
    EXPECT_EQ(lines.back(), "panel 4 = \"The file was updated.\"");
    EXPECT_EQ(document.File_Stem, "OLD_Updated");
    EXPECT_FALSE(document.Read_Only) << "the tick counts for the old file only";
    EXPECT_EQ(document.Fields(1).Cells(1, 3).Value, "z");
    EXPECT_EQ(document.Fields(2).Cells(1, 8).Value, "8");
    EXPECT_EQ(document.Fields(2).Cells(0, 8).Width, 2625);
}

TEST_F(OpenCommand, AnUpdateThatStillDoesntFitIsTold) {
    putKvrtTemplate();
    files.put("/home/old.kvrt9", fileText({"[Field_3_Default]", "ROW_1=low,77", "[Field_1_Default]",
                                           "ROW_1=1,2,3,4", "[Field_2_Default]", "ROW_1=1,2,3,4"}));
    open("/home/old.kvrt9");
    EXPECT_EQ(journal.lines().back(), "panel 4 = \"Zorvane can't update this file.\"");
    EXPECT_EQ(mainForm.base.caption(), "old_updated.kvrt9 - Zorvane");
    EXPECT_EQ(document.Fields(3).Cells(1, 2).Value, "77") << "what was read stays";
}

TEST_F(OpenCommand, AnUpdatedFileIsUpdatedAgainOnlyWhenItDoesntFit) {
    putKvrtTemplate();
    files.put("/home/OLD_Updated.KVRT9", fileText({"[Field_1_Default]", "ROW_1=x,y,z"}));
    open("/home/OLD_Updated.KVRT9");
    EXPECT_EQ(document.File_Stem, "OLD_UPDATED");
    EXPECT_EQ(mainForm.panel(Panel::Message), "");
    EXPECT_FALSE(files.exists("/home/OLD_UPDATED_Updated.KVRT9"));

    files.put("/home/OLD_Updated.KVRT9", fileText({"[Field_1_Default]", "ROW_1=1,2,3,4,5,6,7,8"}));
    open("/home/OLD_Updated.KVRT9");
    EXPECT_EQ(document.File_Stem, "OLD_UPDATED_Updated");
    EXPECT_EQ(mainForm.panel(Panel::Message), "The file was updated.");
    EXPECT_TRUE(files.exists("/home/OLD_UPDATED_Updated.KVRT9"));
}

TEST_F(OpenCommand, AnUpdateThatCantBeWrittenIsToldByTheSecondReading) {
    putKvrtTemplate();
    files.put("/home/old.kvrt9", fileText({"[Field_1_Default]", "ROW_1=1,2,3,4,5,6,7,8"}));
    files.put("/home/OLD_Updated.KVRT9", "");
    files.refuse("/home/OLD_Updated.KVRT9");
    open("/home/old.kvrt9");
    EXPECT_EQ(journal.lines().back(), "panel 4 = \"Zorvane can't update this file.\"");
}

TEST_F(OpenCommand, ARunTimeFailureInsideTheFileCountsAsRead) {
    files.put("/home/bad.abc", fileText({"[Field_1_Default]", "ROW_1=low,77", "[Field_101_Default]",
                                         "ROW_1=a,b", "[Field_1_Default]", "ROW_2=high,88"}));
    open("/home/bad.abc");
    EXPECT_EQ(mainForm.base.caption(), "bad.abc - Zorvane");
    EXPECT_EQ(value(1), "77");
    EXPECT_EQ(value(2), "2") << "the rest of the file isn't read";
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(OpenCommand, ATemplateWithABadIndexLeavesWhatWasReadOnScreenWithoutAMessage) {
    std::string broken = smallTemplate();
    broken.insert(broken.find("[FIELD_2_COLUMNS]"), "[FIELD_101_COLUMNS]\r\nCOL_1_DESC=x\r\n");
    files.put("/app/ABC.ZTP", broken);
    open("/home/site7.abc");
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(upper.TextMatrix(2, 1), "Outputs");
    EXPECT_EQ(document.Fields(2).Cells(0, 1).Value, "");
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame2));
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame3));
    EXPECT_EQ(value(1), "10") << "the document is read all the same";
}

TEST_F(OpenCommand, ATemplateWithoutScanBlocksRegistersNone) {
    document.Holding_Blocks.erase();
    files.put("/app/ABC.ZTP", fileText({"[HARDWARE]", "CONTROLLER=ABC"}));
    open("/home/site7.abc");
    EXPECT_THAT(journal.beginningWith("link"), ElementsAre("link ClearBlocks"));
    EXPECT_TRUE(form.Document_Open);
}

TEST_F(OpenCommand, ATemplateWithTooFewTextsForTheUpperGridStillShowsIt) {
    std::string broken = smallTemplate();
    broken.replace(broken.find("CONFIGURATION_NC=2"), 18, "CONFIGURATION_NC=3");
    files.put("/app/ABC.ZTP", broken);
    open("/home/site7.abc");
    EXPECT_EQ(upper.TextMatrix(1, 1), "Inputs");
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame2));
}

TEST_F(OpenCommand, APreviewThatCantShowTheNewDocumentDoesntKeepItFromView) {
    mainForm.previewsFail = true;
    open("/home/site7.abc");
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame2));
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame3));
    EXPECT_EQ(mainForm.panel(Panel::Message), "");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(OpenCommand, AnOldDocumentWithoutChangesIsClosedWithoutAQuestion) {
    open("/home/site7.abc");
    journal.clear();
    open("/home/site7.abc");
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(folder.texts, IsEmpty());
    const Lines lines = journal.lines();
    EXPECT_EQ(
        Lines(lines.begin() + 2, lines.begin() + 9),
        (Lines{"Frame2 hidden", "Frame3 hidden", "FLX_Configuration 0x2 at row -1",
               "FLX_Settings 0x2 at row -1", "panel 1 = \"\"", "panel 2 = \"\"", "caption = \"Zorvane\""}));
}

TEST_F(OpenCommand, CancellingTheQuestionLeavesAnEmptiedModelUnderTheOldGrids) {
    open("/home/site7.abc");
    edit(1, "11");
    answer(Msgb_Code_Cancel);
    journal.clear();
    open("/home/site7.abc");
    EXPECT_EQ(journal.lines(), (Lines{"ShowOpen \"Open\" ABC Configuration (*.ABC)|*.ABC| at 1, flags 0",
                                      "copy 20261121032005-1-1.ABC",
                                      "setting MainWindow/filtro = ABC Configuration (*.ABC)|*.ABC|",
                                      "Msgb 35 \"Zorvane\": \"Do you want to save this file?\""}));
    EXPECT_EQ(document.Fields.upperBound(), 0);
    EXPECT_EQ(document.Download_Blocks.upperBound(), 0);
    EXPECT_EQ(document.Selected_Field, 0);
    EXPECT_EQ(document.Not_Downloadable_Count, 0);
    EXPECT_EQ(upper.TextMatrix(1, 1), "Inputs");
    EXPECT_TRUE(form.Dirty);
    EXPECT_EQ(mainForm.base.caption(), "* site7.abc - Zorvane");
}

TEST_F(OpenCommand, AnsweringNoOpensTheOther) {
    open("/home/site7.abc");
    edit(1, "11");
    answer(Msgb_Code_No);
    open("/home/site7.abc");
    EXPECT_EQ(value(1), "10");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(OpenCommand, AnsweringYesFindsTheModelEmptiedAndGoesOnWithoutSaving) {
    open("/home/site7.abc");
    edit(1, "11");
    answer(Msgb_Code_Yes);
    files.put("/home/other.abc", smallDocument("50", "60"));
    choose("/home/other.abc");
    choose("/home/new.abc");
    MNU_Open_Click(app);
    EXPECT_EQ(messages(),
              (Lines{"Msgb 35 \"Zorvane\": \"Do you want to save this file?\"",
                     "Msgb 0 \"Zorvane\": \"Can't Save file : path/file error or directory is read only.\r\n"
                     "Extra info: Subscript out of range\"",
                     "Msgb 64 \"Zorvane\": \"The Zorvane can't write the file, please verify the read only "
                     "properties...\""}));
    EXPECT_EQ(value(1), "50") << "what was chosen is opened, not what the other dialog named";
}

TEST_F(OpenCommand, AnsweringYesAndChoosingTheDocumentsOwnFileLeavesThatFileAsItIs) {
    open("/home/site7.abc");
    edit(1, "11");
    answer(Msgb_Code_Yes);
    files.put("/home/other.abc", smallDocument("50", "60"));
    choose("/home/other.abc");
    choose("/home/site7.abc");
    journal.clear();
    MNU_Open_Click(app);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("10", "20"));
    EXPECT_THAT(journal.beginningWith("create"), IsEmpty());
    EXPECT_THAT(messages(), Contains(testing::HasSubstr("Extra info: Subscript out of range")));
    ASSERT_EQ(folder.texts.size(), 1U);
    EXPECT_EQ(withoutHeader(folder.texts.begin()->second), smallDocument("11", "20"))
        << "the changes stay in the copy";
}

TEST_F(OpenCommand, AGridWithoutColumnsKeepsTheFileFromAnEmptiedModelToo) {
    open("/home/site7.abc");
    edit(1, "11");
    lower.setCols(0);
    answer(Msgb_Code_Cancel);
    open("/home/site7.abc");
    choose("/home/site7.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("10", "20"));
    EXPECT_TRUE(document.Save_Failed);
    EXPECT_EQ(document.File_Stem, "SITE7");
}

TEST_F(OpenCommand, AnExitWithAnEmptiedModelLeavesTheFileAsItIsAndTheProgramThere) {
    open("/home/site7.abc");
    edit(1, "11");
    answer(Msgb_Code_Cancel);
    open("/home/site7.abc");
    answer(Msgb_Code_Yes);
    choose("/home/site7.abc");
    MNU_Exit_Click(app);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("10", "20"));
    EXPECT_FALSE(mainForm.ended);
}

TEST_F(OpenCommand, EndsAPollingSessionOfTheOldDocument) {
    open("/home/site7.abc");
    form.Online = true;
    journal.clear();
    open("/home/site7.abc");
    const Lines lines = journal.lines();
    EXPECT_EQ(Lines(lines.begin() + 2, lines.begin() + 9),
              (Lines{"MNU_Disconnect disabled", "TMR_Actualiza_online off", "link StopScan", "link ClosePort",
                     "panel 2 = \"\"", "link EndSession", "Frame2 hidden"}));
    EXPECT_FALSE(form.Online);
}

TEST_F(OpenCommand, DisconnectsFromTheDefaultTemplate) {
    form.Online = true;
    open("/home/site7.abc");
    const Lines lines = journal.lines();
    EXPECT_EQ(lines[5], "Frame2 disabled");
    EXPECT_EQ(lines[6], "MNU_Disconnect disabled")
        << "a document without a name isn't closed, only disconnected";
    EXPECT_FALSE(form.Online);
}

TEST_F(OpenCommand, AFileDroppedOnTheWindowGoesTheSameWayWithoutTheDialog) {
    openFile(app, "/home/site7.abc", true);
    Lines expected(openingFromEmpty.begin() + 2, openingFromEmpty.end());
    expected[7] = "panel 1 = \"READ ONLY\"";
    EXPECT_EQ(journal.lines(), expected);
}

} // namespace
} // namespace zorvane::app
