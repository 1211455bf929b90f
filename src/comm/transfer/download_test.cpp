// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "comm/modbus_control/dry_run_link.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/download.h"
#include "comm/transfer/transfer_records.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zorvane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// One field of two rows and two columns; column 2 is modifiable.
struct Download : ::testing::Test, doubles::Comm_Bench {
    Download() : field(addField(2, 2)) {}

    void setCell(std::int32_t row, const std::string& address, const std::string& value) {
        field.Cells(row, 2).Address = address;
        field.Cells(row, 2).Value = value;
    }

    int failureOfTheCommand() {
        try {
            MNU_Download_Click(comm);
        } catch (const Run_Time_Failure& failure) {
            return failure.number();
        }
        return 0;
    }

    /// The lines between the start of the walk and its end.
    std::vector<std::string> walked() {
        MNU_Download_Click(comm);
        const auto& lines = journal.lines();
        const auto from = std::find(lines.begin(), lines.end(), "link ClearCounters");
        const auto to = std::find(from, lines.end(), "link StopScan");
        return {from + 1, to};
    }

    Field_Rec& field;
};

TEST_F(Download, CleanDownloadOfAPlainModelWithoutAlwaysBlocks) {
    setCell(1, "100", "120");
    setCell(2, "101", "-5");
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.lines(),
                ElementsAre("link ClearWriteFailed", "link SetScanMode NONE", "link PrepareScan",
                            "panel 4 = \"Transferring data to controller...\"", "panel 5 = \"\"",
                            "panel 6 = \"\"", "form disabled", "panel 2 = \"Download\"", "Porcentaje 0 to 2",
                            "Porcentaje label = \"Transferring data to controller...\"", "Porcentaje shown",
                            "link EndSession", "link ClearCounters", "link PresetSingleRegister 7 100 120",
                            "panel 4 = \"Write: 120 @100 ...Completed\"", "Porcentaje at 1",
                            "link PresetSingleRegister 7 101 -5", "panel 4 = \"Write: -5 @101 ...Completed\"",
                            "Porcentaje at 2", "link StopScan", "link ClosePort", "wait 1000 ms",
                            "Porcentaje unloaded", "panel 4 = \"Ready\"", "form enabled",
                            "MNU_Download enabled", "MNU_Upload enabled"));
    EXPECT_FALSE(form.Download_Active);
    EXPECT_FALSE(form.Online);
    EXPECT_EQ(form.Current_Request, "NONE");
}

TEST_F(Download, WithoutRecordsAndWithAlwaysBlocksTheLinkComesBackOnline) {
    addScanBlock(300, 309, "ALWAYS");
    setCell(1, "100", "120");
    MNU_Download_Click(comm);
    const auto& lines = journal.lines();
    const std::vector<std::string> end(std::find(lines.begin(), lines.end(), "link StopScan"), lines.end());
    EXPECT_THAT(end, ElementsAre("link StopScan", "link ClosePort", "wait 1000 ms", "Porcentaje unloaded",
                                 "panel 4 = \"Ready\"", "form enabled", "link StartScan",
                                 "link SetScanMode ALWAYS", "link PrepareScan", "TMR_Actualiza_online on",
                                 "TMR_TxRx on", "MNU_Disconnect enabled", "MNU_Download disabled",
                                 "MNU_Upload disabled"));
    EXPECT_TRUE(form.Online);
    EXPECT_EQ(form.Current_Request, "ALWAYS");
}

TEST_F(Download, AnyRecordKeepsTheSystemOffline) {
    addScanBlock(300, 309, "ALWAYS");
    setCell(1, "100", "120");
    link.writes = {{{}}};
    MNU_Download_Click(comm);
    EXPECT_FALSE(form.Online);
    EXPECT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_THAT(journal.lines(), Contains("MNU_Upload enabled"));
}

TEST_F(Download, EachExchangeThatEndsDuringTheWaitIsARecordAGoodOneToo) {
    setCell(1, "100", "120");
    link.writes = {{{.good = false, .line1 = "Tx: 1", .line2 = "Rx: nothing"},
                    {.good = true, .line1 = "Tx: 2", .line2 = "Rx: 2"}}};
    MNU_Download_Click(comm);
    ASSERT_EQ(form.Transfer_Errors.size(), 2U);
    const Info_Rec_Errors& first = form.Transfer_Errors[0];
    EXPECT_EQ(first.Start_Address, "Tx: 1");
    EXPECT_EQ(first.End_Address, "Rx: nothing");
    EXPECT_EQ(first.Function_Text, "FC-6");
    EXPECT_EQ(first.Register, "100");
    EXPECT_EQ(first.Value, "120");
    EXPECT_EQ(first.Response, "No Response");
    EXPECT_EQ(first.Retry, 1);
    EXPECT_EQ(form.Transfer_Errors[1].Start_Address, "Tx: 2");
    EXPECT_EQ(form.Transfer_Errors[1].Retry, 2);
}

TEST_F(Download, ExceptionAnswerIsRecordedAndTheWalkGoesOn) {
    setCell(1, "100", "120");
    setCell(2, "101", "121");
    link.writes = {{{.good = false, .response = "Illegal data value (exception 3)"}}, {{}}};
    EXPECT_THAT(walked(), ElementsAre("link PresetSingleRegister 7 100 120", "link ClearLastResponse",
                                      "panel 4 = \"Write: 120 @100 ...Completed\"", "link ClearWriteFailed",
                                      "panel 4 = \"Write: 120 @100 ...Failed\"", "Porcentaje at 1",
                                      "link PresetSingleRegister 7 101 121", "link ClearLastResponse",
                                      "panel 4 = \"Write: 121 @101 ...Completed\"", "Porcentaje at 2"));
    ASSERT_EQ(form.Transfer_Errors.size(), 2U);
    EXPECT_EQ(form.Transfer_Errors[0].Response, "Illegal data value (exception 3)");
    EXPECT_EQ(form.Transfer_Errors[0].Retry, 1);
}

TEST_F(Download, ExceptionAnswerToATextIsAFinalRecord) {
    field.Cells(1, 2).Is_Ascii_Range = true;
    field.Cells(1, 2).Address_End = "100";
    setCell(1, "100", "AB");
    link.writes = {{{.good = false, .response = "Illegal data value (exception 3)"}}};
    EXPECT_THAT(walked(),
                ElementsAre("FLX_Settings tab stop off", "link PresetMultipleRegisters 7 100 [16706]",
                            "wait 500 ms", "panel 4 = \"Writing ascii block: 100-100 @AB ...Failed\"",
                            "FLX_Settings tab stop on", "panel 4 = \"Write: AB @100 ...Completed\"",
                            "link ClearWriteFailed", "panel 4 = \"Write: AB @100 ...Failed\"",
                            "Porcentaje at 1", "panel 4 = \"Write:  @ ...Completed\"", "Porcentaje at 2"));
    ASSERT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_EQ(form.Transfer_Errors[0].Response, "Illegal data value (exception 3)");
    EXPECT_EQ(form.Transfer_Errors[0].Retry, 0);
}

TEST_F(Download, BlankAnswerToATextIsAnExceptionResponse) {
    field.Cells(1, 2).Is_Ascii_Range = true;
    field.Cells(1, 2).Address_End = "100";
    setCell(1, "100", "AB");
    link.writes = {{{.good = false, .response = " "}}};
    MNU_Download_Click(comm);
    ASSERT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_EQ(form.Transfer_Errors[0].Response, "No Response (Exception Response)");
}

TEST_F(Download, BusyControllerLeavesTheFailedLineAndNoFinalRecord) {
    setCell(1, "100", "120");
    link.writes = {{{.good = false, .response = "BUSY"}}};
    EXPECT_THAT(walked(), Contains("panel 4 = \"Write: 120 @100 ...Failed\""));
    ASSERT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_EQ(form.Transfer_Errors[0].Response, "BUSY");
    EXPECT_EQ(form.Transfer_Errors[0].Retry, 1);
    EXPECT_EQ(journal.beginningWith("link PresetSingleRegister").size(), 1U);
}

TEST_F(Download, BusyControllerAtATextLeavesNoRecord) {
    field.Cells(1, 2).Is_Ascii_Range = true;
    field.Cells(1, 2).Address_End = "100";
    setCell(1, "100", "AB");
    link.writes = {{{.good = false, .response = "BUSY"}}};
    MNU_Download_Click(comm);
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_THAT(journal.lines(), Contains("panel 4 = \"Write: AB @100 ...Failed\""));
}

TEST_F(Download, SilenceLeavesARecordPerTryAndTheWalkGoesOnToTheEndOfTheField) {
    setCell(1, "100", "120");
    setCell(2, "101", "121");
    const doubles::Exchange silent{.good = false};
    link.writes = {{silent, silent, silent}, {silent, silent, silent}};
    MNU_Download_Click(comm);
    ASSERT_EQ(form.Transfer_Errors.size(), 6U);
    EXPECT_EQ(form.Transfer_Errors[2].Response, "No Response");
    EXPECT_EQ(form.Transfer_Errors[2].Retry, 3);
    EXPECT_EQ(form.Transfer_Errors[3].Register, "101");
    EXPECT_EQ(form.Transfer_Errors[3].Retry, 1);
    EXPECT_THAT(journal.lines(), Contains("panel 4 = \"Write: 121 @101 ...Failed\""));
}

TEST_F(Download, LostLinkAtTheNextFieldEndsTheTransfer) {
    setCell(1, "100", "120");
    Field_Rec& second = addField(1, 2);
    second.Cells(1, 2).Address = "200";
    link.writes = {{{.good = false, .before = [this] { link.lost = true; }}}};
    MNU_Download_Click(comm);
    const auto& lines = journal.lines();
    const std::vector<std::string> end(std::find(lines.begin(), lines.end(), "link StopScan"), lines.end());
    EXPECT_THAT(end, ElementsAre("link StopScan", "link ClosePort",
                                 "Porcentaje label = \"Error. The controller does not respond.\"",
                                 "Porcentaje closing", "form enabled", "panel 2 = \"Offline\"",
                                 "panel 4 = \"Error. The controller does not respond.\""));
    EXPECT_EQ(journal.beginningWith("link PresetSingleRegister").size(), 1U);
    EXPECT_FALSE(form.Download_Active);
    EXPECT_FALSE(form.Write_Busy);
}

TEST_F(Download, NotDownloadableAddressIsShownAndSkippedAndTheBarMoves) {
    setCell(1, "100", "120");
    setCell(2, "101", "121");
    addNotDownloadable("100");
    EXPECT_THAT(walked(), ElementsAre("panel 4 = \"100 ...No Download\"", "Porcentaje at 1",
                                      "link PresetSingleRegister 7 101 121",
                                      "panel 4 = \"Write: 121 @101 ...Completed\"", "Porcentaje at 2"));
}

TEST_F(Download, CellWithoutARegisterIsSkippedAndCountsAsDone) {
    setCell(1, "", "text");
    setCell(2, "abc", "121");
    EXPECT_THAT(walked(), ElementsAre("panel 4 = \"Write: text @ ...Completed\"", "Porcentaje at 1",
                                      "panel 4 = \"Write: 121 @abc ...Completed\"", "Porcentaje at 2"));
    EXPECT_TRUE(form.Nothing_Sent);
}

TEST_F(Download, ColumnsThatAreNotModifiableAreLeftOut) {
    field.Cells(1, 1).Address = "90";
    field.Cells(0, 2).Modifiable = false;
    EXPECT_THAT(walked(), IsEmpty());
    EXPECT_EQ(mainForm.progress.maximum(), 0);
}

TEST_F(Download, Column1AndTheLastOneAreWalkedAndTheRowNumbersAreNot) {
    for (std::int32_t column = 0; column <= 2; ++column) {
        field.Cells(0, column).Modifiable = true;
        field.Cells(1, column).Address = std::to_string(100 + column);
    }
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.beginningWith("link PresetSingleRegister"),
                ElementsAre("link PresetSingleRegister 7 101 0", "link PresetSingleRegister 7 102 0"));
    EXPECT_EQ(mainForm.progress.maximum(), 4);
}

TEST_F(Download, FieldsThatTheUpperGridDoesNotShowAreLeftOut) {
    setCell(1, "100", "120");
    addField(1, 2).Cells(1, 2).Address = "99";
    Field_Rec& before = document.Fields(0);
    before.Rows = 1;
    before.Columns = 1;
    before.Cells.redim(1, 1);
    before.Cells(0, 1).Modifiable = true;
    before.Cells(1, 1).Address = "98";
    mainForm.grid.rows = 2;
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.beginningWith("link PresetSingleRegister"),
                ElementsAre("link PresetSingleRegister 7 100 120"));
    EXPECT_EQ(mainForm.progress.maximum(), 2);
}

TEST_F(Download, IsNoUpload) {
    form.Transfer_Was_Upload = true;
    MNU_Download_Click(comm);
    EXPECT_FALSE(form.Transfer_Was_Upload);
}

TEST_F(Download, ALinkThatIsLostFromTheStartLeavesNoWriteBusy) {
    form.Write_Busy = true;
    link.lost = true;
    MNU_Download_Click(comm);
    EXPECT_FALSE(form.Write_Busy);
    EXPECT_EQ(mainForm.panel(Panel::Message), "Error. The controller does not respond.");
}

TEST_F(Download, WalksFieldByFieldAndColumnByColumn) {
    field = Field_Rec{};
    field.Rows = 2;
    field.Columns = 3;
    field.Cells.redim(2, 3);
    for (std::int32_t column = 2; column <= 3; ++column) {
        field.Cells(0, column).Modifiable = true;
        for (std::int32_t row = 1; row <= 2; ++row)
            field.Cells(row, column).Address = std::to_string(row * 10 + column);
    }
    addField(1, 2).Cells(1, 2).Address = "99";
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.beginningWith("link PresetSingleRegister"),
                ElementsAre("link PresetSingleRegister 7 12 0", "link PresetSingleRegister 7 22 0",
                            "link PresetSingleRegister 7 13 0", "link PresetSingleRegister 7 23 0",
                            "link PresetSingleRegister 7 99 0"));
    EXPECT_EQ(mainForm.progress.maximum(), 5);
}

TEST_F(Download, BoardFamilyWritesBlocksThatGrowWithEachCell) {
    document.Controller_Model = "R7702-16";
    addDownloadBlock("100", "102", 0);
    setCell(1, "100", "120");
    setCell(2, "101", "121");
    link.image = {{100, 1}, {101, 2}, {102, 3}};
    EXPECT_THAT(walked(), ElementsAre("link PresetMultipleRegisters 7 100 [120 2 3]",
                                      "panel 4 = \"Write: 120 @100 ...Completed\"", "Porcentaje at 1",
                                      "link PresetMultipleRegisters 7 100 [120 121 3]",
                                      "panel 4 = \"Write: 121 @101 ...Completed\"", "Porcentaje at 2"));
}

TEST_F(Download, BoardRegisterInNoBlockEndsTheDownloadWithFailure13) {
    document.Controller_Model = "R7702-16";
    addDownloadBlock("100", "102", 0);
    setCell(1, "100", "120");
    setCell(2, "50", "121");
    EXPECT_EQ(failureOfTheCommand(), 13);
    EXPECT_EQ(mainForm.panel(Panel::Message), "Write: 120 @100 ...Completed");
}

TEST_F(Download, TextWithAnAccentEndsTheDownloadWithFailure6) {
    field.Cells(1, 2).Is_Ascii_Range = true;
    field.Cells(1, 2).Address_End = "101";
    setCell(1, "100", "caf\xE9");
    EXPECT_EQ(failureOfTheCommand(), 6);
}

TEST_F(Download, FieldWithoutATableEndsTheDownloadWithFailure9) {
    mainForm.grid.rows = 3;
    EXPECT_EQ(failureOfTheCommand(), 9);
}

TEST_F(Download, NegativeWordOutlivesItsCell) {
    field.Cells(0, 2).Bits_Negative_Format = "8";
    setCell(1, "100", "-5");
    setCell(2, "101", "-5");
    Field_Rec& second = addField(1, 2);
    second.Cells(0, 2).Bits_Negative_Format = "eight";
    second.Cells(1, 2).Address = "200";
    second.Cells(1, 2).Value = "-9";
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.beginningWith("link PresetSingleRegister 0 200"),
                ElementsAre("link PresetSingleRegister 0 200 133"));
}

TEST_F(Download, NegativeWordIs0BeforeTheFirstCellThatHasOne) {
    field.Cells(0, 2).Bits_Negative_Format = "none";
    setCell(1, "100", "-5");
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.beginningWith("link PresetSingleRegister"),
                ElementsAre("link PresetSingleRegister 0 100 0"));
}

TEST_F(Download, NegativeWordOfACellThatIsNotDownloadableCountsToo) {
    field.Cells(0, 2).Bits_Negative_Format = "8";
    setCell(1, "100", "-5");
    setCell(2, "101", "5");
    document.Not_Downloadable_Count = 1;
    document.Not_Downloadable.redim(1);
    document.Not_Downloadable(1) = "100";
    Field_Rec& second = addField(1, 2);
    second.Cells(0, 2).Bits_Negative_Format = "eight";
    second.Cells(1, 2).Address = "200";
    second.Cells(1, 2).Value = "-9";
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.beginningWith("link PresetSingleRegister"),
                ElementsAre("link PresetSingleRegister 7 101 5", "link PresetSingleRegister 0 200 133"));
}

TEST_F(Download, CancelDuringAWriteDisconnectsAndEndsTheCommand) {
    setCell(1, "100", "120");
    setCell(2, "101", "121");
    mainForm.answers = {Msgb_Code_Yes};
    link.writes = {{{.before = [this] { BOT_Cancel_Click(comm); }}, {}}};
    MNU_Download_Click(comm);
    const auto& lines = journal.lines();
    const std::vector<std::string> end(std::find(lines.begin(), lines.end(), "link PauseScan"), lines.end());
    EXPECT_THAT(
        end,
        ElementsAre("link PauseScan",
                    "Msgb 36 \"Zorvane\": \"The transfer is not complete. Do you want to abort anyway?\"",
                    "link ResumeScan", "MNU_Disconnect disabled", "TMR_Actualiza_online off", "TMR_TxRx off",
                    "link StopScan", "link ClosePort", "panel 5 = \"\"", "panel 6 = \"\"",
                    "panel 2 = \"Offline\"", "link EndSession", "MNU_Download enabled", "MNU_Upload enabled",
                    "Porcentaje unloaded", "panel 4 = \"Download cancelled...\"", "form enabled",
                    "form enabled"));
    EXPECT_FALSE(form.Download_Active);
    EXPECT_EQ(journal.beginningWith("link PresetSingleRegister").size(), 1U);
}

TEST_F(Download, CancelWithNoGoesOn) {
    setCell(1, "100", "120");
    mainForm.answers = {Msgb_Code_No};
    link.writes = {{{.before = [this] { BOT_Cancel_Click(comm); }}}};
    MNU_Download_Click(comm);
    EXPECT_EQ(mainForm.panel(Panel::Message), "Ready");
    EXPECT_EQ(mainForm.progress.value(), 2);
}

TEST_F(Download, EmptiesTheRecordsAndTheCancelOfTheLastTransfer) {
    form.Cancel_Requested = true;
    form.Transfer_Errors.emplace_back();
    form.Transfer_Log.emplace_back();
    link.writeFailed = true;
    setCell(1, "100", "120");
    MNU_Download_Click(comm);
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_THAT(form.Transfer_Log, IsEmpty());
    EXPECT_EQ(mainForm.panel(Panel::Message), "Ready");
}

TEST_F(Download, LinesOfItsExchangesReachTheLog) {
    setCell(1, "100", "120");
    link.onExchange([this](const std::string& line1, const std::string& line2) {
        modbus_control_Event10(form, {}, line1, line2);
    });
    link.writes = {{{.line1 = "Tx: 07 06", .line2 = "Rx: 07 06"}}};
    MNU_Download_Click(comm);
    ASSERT_EQ(form.Transfer_Log.size(), 1U);
    EXPECT_EQ(form.Transfer_Log[0].End_Address, "Tx: 07 06");
    EXPECT_EQ(form.Transfer_Log[0].Start_Address, "Rx: 07 06");
}

TEST_F(Download, DryRunListsEveryWriteAndBuildsOnTheOnesBefore) {
    document.Controller_Model = "R7702-16";
    addDownloadBlock("100", "102", 0);
    setCell(1, "100", "-1");
    setCell(2, "101", "121");
    readMessages(field.Cells(2, 2), "(0)Off");
    Field_Rec& second = addField(1, 2);
    second.Cells(1, 2).Address = "102";
    second.Cells(1, 2).Value = "7";
    Dry_Run_Link dry(Dry_Run_Link::Registers{{100, 1}, {101, 65535}});
    MNU_Download_Click(Comm_Context{document, form, dry, mainForm});
    EXPECT_THAT(dry.writes(),
                ElementsAre(Planned_Write{16, 100, {65535, 65535, 0}}, Planned_Write{6, 101, {121}},
                            Planned_Write{16, 100, {65535, 121, 7}}));
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_EQ(mainForm.panel(Panel::Message), "Ready");
}

// A document that goes during a transfer. The window keeps that from happening; nothing is written to it.

struct Orphaned_Download : Download {
    void replaceDocument() {
        PRO_Limpia_Modelo(document);
        document.Fields.redim(highestField);
        addField(2, 2).Cells(1, 2).Value = "3";
        journal.clear();
    }
    void expectDropped() {
        const auto& lines = journal.lines();
        const auto from = std::find(lines.begin(), lines.end(), "link StopScan");
        EXPECT_THAT(std::vector(from, lines.end()),
                    ElementsAre("link StopScan", "link ClosePort", "link EndSession", "Porcentaje unloaded",
                                "form enabled"));
        for (const std::string& before : std::vector(lines.begin(), from))
            EXPECT_EQ(before, "FLX_Settings tab stop on");
        EXPECT_FALSE(form.Download_Active);
        EXPECT_THAT(form.Transfer_Errors, IsEmpty());
        EXPECT_EQ(document.Fields(1).Cells(1, 2).Value, "3");
        EXPECT_FALSE(form.Online);
    }
};

TEST_F(Orphaned_Download, EndsInTheWaitForAWrite) {
    setCell(1, "100", "120");
    setCell(2, "101", "121");
    link.writes = {{{true, "", [this] { replaceDocument(); }}}};
    MNU_Download_Click(comm);
    expectDropped();
}

TEST_F(Orphaned_Download, EndsInTheWaitForAText) {
    setCell(1, "100", "AB");
    field.Cells(1, 2).Is_Ascii_Range = true;
    field.Cells(1, 2).Address_End = "101";
    link.writes = {{{true, "", [this] { replaceDocument(); }}}};
    MNU_Download_Click(comm);
    expectDropped();
}

TEST_F(Orphaned_Download, EndsInItsLastSecond) {
    setCell(1, "100", "120");
    mainForm.duringPause = [this](std::int32_t) { replaceDocument(); };
    MNU_Download_Click(comm);
    expectDropped();
}

TEST_F(Orphaned_Download, EndsThoughTheNextDocumentIsOnline) {
    setCell(1, "100", "120");
    link.writes = {{{true, "", [this] {
                         replaceDocument();
                         form.Online = true;
                     }}}};
    MNU_Download_Click(comm);
    EXPECT_FALSE(form.Download_Active);
    EXPECT_THAT(journal.beginningWith("link ClosePort"), IsEmpty());
}

TEST_F(Orphaned_Download, LeavesTheNextDocumentsSessionOpen) {
    setCell(1, "100", "120");
    mainForm.duringPause = [this](std::int32_t) {
        replaceDocument();
        form.Online = true;
    };
    MNU_Download_Click(comm);
    EXPECT_THAT(journal.lines(), IsEmpty());
    EXPECT_FALSE(form.Download_Active);
}

// What a download came to.

TEST_F(Download, ItsResultListsWhatIsShownAsFailedWithTheAnswer) {
    field.Cells.redim(4, 2);
    field.Rows = 4;
    field.Cells(0, 2).Modifiable = true;
    setCell(1, "100", "1");
    setCell(2, "101", "2");
    setCell(3, "102", "a b");
    field.Cells(3, 2).Is_Ascii_Range = true;
    field.Cells(3, 2).Address_End = "103";
    setCell(4, "104", "4");
    const std::string illegal = "Illegal data address (exception 2)";
    link.writes = {{{.good = false}, {.good = false, .response = illegal}},
                   {{.good = false, .response = "BUSY"}, {.good = false}},
                   {{.good = false, .response = "BUSY"}},
                   {{}}};
    MNU_Download_Click(comm);
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Finished);
    EXPECT_THAT(form.Last_Download.failed,
                ElementsAre(Failed_Value{"100", "1", illegal}, Failed_Value{"101", "2", ""},
                            Failed_Value{"102", "a b", "BUSY"}));
}

TEST_F(Download, ItsResultSaysHowElseItEnded) {
    setCell(1, "100", "120");
    setCell(2, "101", "1");
    link.lost = true;
    MNU_Download_Click(comm);
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Lost);
    link.lost = false;
    link.seen = false;
    link.writes = {{{.before = [this] { form.Cancel_Requested = true; }}, {}}};
    MNU_Download_Click(comm);
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Cancelled);
    EXPECT_FALSE(form.Last_Download.controllerSeen);
    setCell(1, "100", "no number");
    document.Controller_Model = "R7702-16"; // its block is in no list of the template
    EXPECT_EQ(failureOfTheCommand(), 13);
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Failed);
}

} // namespace
} // namespace zorvane
