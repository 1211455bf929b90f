// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/form/menu_state.h"
#include "app/form_life.h"
#include "app/testing/app_bench.h"
#include "values/testing/failure_number.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::failureNumber;
using doubles::smallDocument;
using doubles::smallTemplate;
using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

const std::string question = "Msgb 35 \"Zorvane\": \"Do you want to save this file?\"";
const std::string notWritten =
    "Msgb 64 \"Zorvane\": \"The Zorvane can't write the file, please verify the read only properties...\"";

const Lines placesStored = {"setting MainWindow/Top = 1000",   "setting MainWindow/Left = 2000",
                            "setting MainWindow/Width = 6990", "setting MainWindow/Height = 7380",
                            "setting ModbusDialog/Top = 22",   "setting ModbusDialog/Left = 11",
                            "setting ModbusDialog/Width = 33", "setting ModbusDialog/Height = 44"};

Lines operator+(Lines first, const Lines& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

const Lines unloading = placesStored + Lines{"link UnloadMonitor", "tray icon removed", "column tip removed",
                                             "previews closed", "program ended"};

struct StartUp : testing::Test, App_Bench {};

TEST_F(StartUp, TheNormalSizeIsGivenOnce) {
    TIM_Tamaño_normal_Timer(app);
    EXPECT_EQ(journal.lines(), (Lines{"TIM_Tamaño_normal off", "form at 1000 2000, 6855 by 7410"}));
}

TEST_F(StartUp, FormLoadPreparesTheFormAndReadsNoFile) {
    form.Dirty = form.Document_Open = true;
    state.Filter_Text = "left over";
    document.Colors.Color_Txt_Error = "GREEN";
    Form_Load(app);
    EXPECT_EQ(journal.lines(), (Lines{"MNU_Download disabled",
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
                                      "TMR_Verifica_monitor on",
                                      "form at 1000 2000, 6990 by 7380",
                                      "MNU_Grid not ticked",
                                      "Frame2 hidden",
                                      "Frame3 hidden",
                                      "panel 4 = \"Processing Font size...\"",
                                      "previews restarted with 8.25",
                                      "panel 4 = \"\"",
                                      "FrmDebug loaded"}));
    EXPECT_FALSE(form.Dirty);
    EXPECT_FALSE(form.Document_Open);
    EXPECT_EQ(state.Filter_Text, "");
    EXPECT_EQ(document.Colors.Color_Txt_Error, "RED");
}

TEST_F(StartUp, TheGridsTickIsRememberedAsAnyNumberButZero) {
    for (const auto& [stored, ticked] : std::vector<std::pair<const char*, bool>>{
             {"0", false}, {"1", true}, {"-1", true}, {"", false}, {"yes", false}}) {
        settings.texts["Zorvane/Settings/Grid"] = stored;
        Form_Load(app);
        EXPECT_EQ(mainForm.menuChecked(Menu_Entry::MNU_Grid), ticked) << stored;
    }
}

TEST_F(StartUp, TheGridsTickIsStoredAsOneOrZero) {
    MNU_Grid_Click(app);
    MNU_Grid_Click(app);
    EXPECT_EQ(journal.lines(), (Lines{"MNU_Grid ticked", "setting Settings/Grid = 1", "MNU_Grid not ticked",
                                      "setting Settings/Grid = 0"}));
}

TEST_F(StartUp, TheFirstTimerShowsTheDefaultTemplate) {
    files.put("/app/KVRT.ztp", smallTemplate());
    TMR_Abre_ZTP_Timer(app);
    EXPECT_EQ(journal.lines(),
              (Lines{"TMR_Abre_ZTP off", "Frame2 shown", "Frame3 shown", "read /app/kvrt.ztp",
                     "FLX_Configuration 3x2 at row 0", "panel 2 = \"Offline\""}));
    EXPECT_TRUE(form.Document_Open);
    EXPECT_EQ(document.File_Stem, "");
    EXPECT_EQ(upper.Row(), 1);
    EXPECT_EQ(document.Selected_Field, 1);
    EXPECT_EQ(lower.TextMatrix(1, 0), "low");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Saveas));
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Upload));
}

TEST_F(StartUp, TheDefaultTemplateCantBeSavedAlsoAfterAChange) {
    files.put("/app/KVRT.ztp", smallTemplate());
    TMR_Abre_ZTP_Timer(app);
    edit(1, "11");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
}

TEST_F(StartUp, AMissingDefaultTemplateIsToldAndLeavesAnEmptyScreen) {
    TMR_Abre_ZTP_Timer(app);
    EXPECT_EQ(messages(),
              (Lines{"Msgb 16 \"Zorvane\": \"The ZTP file (/app/kvrt.ztp) was not found in: \r\n/app\""}));
    EXPECT_EQ(upper.Rows(), 1);
    EXPECT_EQ(lower.Rows(), 0);
}

TEST_F(StartUp, NothingHandlesAFailureInTheDefaultTemplate) {
    files.put("/app/kvrt.ztp", "[FIELD_101_COLUMNS]\r\nCOL_1_DESC=x\r\n");
    EXPECT_EQ(failureNumber([&] { TMR_Abre_ZTP_Timer(app); }), 9);
    EXPECT_FALSE(form.Document_Open);
}

TEST_F(StartUp, ADefaultTemplateWithTooFewTextsForTheUpperGridIsShownAllTheSame) {
    files.put(
        "/app/kvrt.ztp",
        doubles::fileText({"[PORT_CONFIGURATION]", "HOLDINGREGISTERSBLOCK_1=1-8", "[CONFIGURATION_COLUMNS]",
                           "CONFIGURATION_NC=3", "[CONFIGURATION_FIELDS]", "FIELD_1_DESC=Inputs",
                           "FIELD_1_RC=1,1", "FIELD_2_DESC=Outputs", "FIELD_2_RC=1,1",
                           "[CONFIGURATION_DEFAULT]", "FIELD_1=,,Yes", "[FIELD_1_DEFAULT]", "ROW_1=7"}));
    TMR_Abre_ZTP_Timer(app);
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_TRUE(form.Document_Open);
    EXPECT_EQ(upper.TextMatrix(1, 1), "Inputs");
    EXPECT_EQ(upper.TextMatrix(1, 2), "Yes");
    EXPECT_EQ(upper.TextMatrix(2, 1), "Outputs");
    EXPECT_EQ(upper.TextMatrix(2, 2), "");
    EXPECT_EQ(upper.Row(), 1);
    EXPECT_EQ(lower.TextMatrix(1, 0), "7");
}

TEST_F(StartUp, TheSecondTimerShowsTheForm) {
    TMR_Inicial_ZTP_Timer(app);
    EXPECT_THAT(journal.lines(), ElementsAre("TMR_Inicial_ZTP off", "form shown"));
}

struct Exits : testing::Test, App_Bench {
    Exits() {
        openFile(app, "/home/site7.abc", false);
        journal.clear();
    }
    void editQuietly() {
        edit(1, "11");
        journal.clear();
    }
    std::int16_t close() {
        std::int16_t cancel = 0;
        Form_QueryUnload(app, cancel, 0);
        return cancel;
    }
};

TEST_F(Exits, ClosingTheWindowWithoutChangesEndsTheProgram) {
    EXPECT_EQ(close(), 0);
    EXPECT_EQ(journal.lines(), (Lines{"tray icon removed"} + placesStored + unloading));
    EXPECT_TRUE(mainForm.ended);
}

TEST_F(Exits, ClosingTheWindowWithCancelStillStoresTheWindowsPlaces) {
    editQuietly();
    answer(Msgb_Code_Cancel);
    EXPECT_EQ(close(), 1);
    EXPECT_EQ(journal.lines(), (Lines{"copy 20261121032005-1-1.ABC", question}) + placesStored);
    EXPECT_FALSE(mainForm.ended);
}

TEST_F(Exits, ClosingTheWindowWithNoEndsWithoutSaving) {
    editQuietly();
    answer(Msgb_Code_No);
    EXPECT_EQ(close(), 0);
    EXPECT_EQ(journal.lines(), (Lines{"copy 20261121032005-1-1.ABC", question, "tray icon removed"}) +
                                   placesStored + unloading);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("10", "20"));
    EXPECT_EQ(folder.texts.size(), 1U);
}

TEST_F(Exits, ClosingTheWindowWithYesSavesAndEnds) {
    editQuietly();
    answer(Msgb_Code_Yes);
    choose("/home/site7.abc");
    EXPECT_EQ(close(), 0);
    EXPECT_TRUE(mainForm.ended);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("11", "20"));
    EXPECT_THAT(folder.texts, IsEmpty());
}

TEST_F(Exits, ClosingTheWindowWithAFailingWriteStays) {
    editQuietly();
    answer(Msgb_Code_Yes);
    files.refuse("/home/site7.abc");
    choose("/home/site7.abc");
    EXPECT_EQ(close(), 1);
    EXPECT_TRUE(form.Dirty);
    EXPECT_FALSE(mainForm.ended);
    EXPECT_EQ(messages().back(), notWritten);
    EXPECT_EQ(Lines(journal.lines().end() - 8, journal.lines().end()), placesStored);
}

TEST_F(Exits, ExitWithoutChangesEndsTheProgram) {
    MNU_Exit_Click(app);
    EXPECT_EQ(journal.lines(), Lines{"tray icon removed"} + unloading);
}

TEST_F(Exits, ExitWithCancelDoesNothing) {
    editQuietly();
    answer(Msgb_Code_Cancel);
    MNU_Exit_Click(app);
    EXPECT_EQ(journal.lines(), (Lines{"copy 20261121032005-1-1.ABC", question}));
}

TEST_F(Exits, ExitWithNoEndsWithoutSaving) {
    editQuietly();
    answer(Msgb_Code_No);
    MNU_Exit_Click(app);
    EXPECT_EQ(journal.lines(),
              (Lines{"copy 20261121032005-1-1.ABC", question, "tray icon removed"} + unloading));
}

TEST_F(Exits, ExitWithYesSavesAndEnds) {
    editQuietly();
    answer(Msgb_Code_Yes);
    choose("/home/site8.abc");
    MNU_Exit_Click(app);
    EXPECT_TRUE(mainForm.ended);
    EXPECT_EQ(files.text("/home/site8.abc"), smallDocument("11", "20"));
}

TEST_F(Exits, ExitWithADirtyFileYesAndAFailingWriteStaysOpenAndDirty) {
    editQuietly();
    answer(Msgb_Code_Yes);
    files.refuse("/home/site7.abc");
    choose("/home/site7.abc");
    MNU_Exit_Click(app);
    EXPECT_EQ(
        messages(),
        (Lines{question,
               "Msgb 0 \"Zorvane\": \"Can't Save file : path/file error or directory is read only.\r\nExtra "
               "info: Permission denied\"",
               notWritten}));
    EXPECT_TRUE(form.Dirty);
    EXPECT_FALSE(mainForm.ended);
}

TEST_F(Exits, UnloadingClosesAPortThatIsOpen) {
    const auto withPortOpen = [this](bool& reason) {
        form.Online = form.Comm_Active = false;
        reason = true;
        journal.clear();
        Form_Unload(app);
        EXPECT_EQ(journal.lines(),
                  (placesStored + Lines{"link UnloadMonitor", "tray icon removed", "link StopScan",
                                        "link ClosePort", "column tip removed", "previews closed",
                                        "program ended"}));
    };
    withPortOpen(form.Online);
    withPortOpen(form.Comm_Active);
}

TEST_F(Exits, UnloadingClosesThePortOfADownloadThatRuns) {
    form.Download_Active = true;
    Form_Unload(app);
    EXPECT_EQ(journal.lines(), (placesStored + Lines{"link UnloadMonitor", "tray icon removed",
                                                     "link StopScan", "link ClosePort", "column tip removed",
                                                     "previews closed", "program ended"}));
}

} // namespace
} // namespace zorvane::app
