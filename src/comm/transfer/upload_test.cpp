// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/upload.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A document `SITE7.ABC` of one field with one cell at register 100, and two scan blocks.
struct Upload : ::testing::Test, doubles::Comm_Bench {
    Upload() {
        document.File_Stem = "SITE7";
        document.File_Extension = "ABC";
        addField(1, 1).Cells(1, 1).Address = "100";
        addScanBlock(100, 109);
        addScanBlock(200, 219);
    }

    void tick() { TMR_Actualiza_valores_Timer(comm); }

    /// The scan reads the present block and goes to another.
    void scanTo(std::int32_t index, bool good = true, const std::string& answer = {}) {
        link.finishScan(good, answer);
        link.blockIndex = index;
        tick();
    }

    void start() {
        MNU_Upload_Click(comm);
        journal.clear();
    }

    const Cell_Rec& cell() const { return document.Fields(1).Cells(1, 1); }
};

TEST_F(Upload, StartsInThisOrder) {
    MNU_Upload_Click(comm);
    EXPECT_THAT(journal.lines(),
                ElementsAre("link SetScanMode NONE", "panel 5 = \"\"", "panel 6 = \"\"", "form disabled",
                            "panel 2 = \"Upload\"", "panel 4 = \"Uploading... Wait a moment please\"",
                            "Porcentaje label = \"Uploading data from the controller...\"",
                            "Porcentaje 0 to 2", "Porcentaje shown", "caption = \"site7.abc - Zorvane\"",
                            "link ClearCounters", "link ResetTransferLog", "link ResetScan",
                            "link PrepareScan", "link StartScan", "TMR_Actualiza_valores on"));
    EXPECT_TRUE(form.Upload_Active);
    EXPECT_TRUE(form.Comm_Active);
    EXPECT_EQ(form.Current_Request, "NONE");
}

TEST_F(Upload, TitleKeepsItsMarkAtTheStart) {
    form.Dirty = true;
    MNU_Upload_Click(comm);
    EXPECT_EQ(mainForm.caption(), "* site7.abc - Zorvane");
}

TEST_F(Upload, TickWithoutNewsOnlyRearmsTheTimer) {
    start();
    tick();
    EXPECT_THAT(journal.lines(), ElementsAre("TMR_Actualiza_valores off", "TMR_Actualiza_valores on"));
}

TEST_F(Upload, CleanUploadWithoutAlwaysBlocksNeverGoesOnline) {
    start();
    link.image[100] = 42;
    scanTo(2);
    scanTo(1);
    EXPECT_THAT(journal.lines(),
                ElementsAre("TMR_Actualiza_valores off", "Porcentaje at 1", "TMR_Actualiza_valores on",
                            "TMR_Actualiza_valores off", "Porcentaje at 2", "link StopScan", "link ClosePort",
                            "link EndSession", "FLX_Settings redraw off", "FLX_Settings redraw on",
                            "FLX_Settings filled with 1", "caption = \"* site7.abc - Zorvane\"",
                            "MNU_Save enabled", "panel 4 = \"Ready\"", "Porcentaje unloaded", "form enabled",
                            "MNU_Download enabled", "MNU_Upload enabled"));
    EXPECT_EQ(cell().Value, "42");
    EXPECT_TRUE(form.Dirty);
    EXPECT_FALSE(form.Online);
    EXPECT_FALSE(form.Comm_Active);
    EXPECT_FALSE(form.Upload_Active);
    EXPECT_EQ(form.Pass_Count, 0);
}

TEST_F(Upload, CleanUploadWithAlwaysBlocksGoesOnline) {
    addScanBlock(300, 309, "ALWAYS");
    start();
    scanTo(2);
    scanTo(3);
    journal.clear();
    scanTo(1);
    EXPECT_THAT(journal.lines(),
                ElementsAre("TMR_Actualiza_valores off", "Porcentaje at 3", "link StopScan", "link ClosePort",
                            "link EndSession", "FLX_Settings redraw off", "FLX_Settings redraw on",
                            "FLX_Settings filled with 1", "caption = \"* site7.abc - Zorvane\"",
                            "MNU_Save enabled", "panel 4 = \"Ready\"", "Porcentaje unloaded", "form enabled",
                            "link SetScanMode ALWAYS", "link PrepareScan", "link StartScan",
                            "TMR_Actualiza_online on", "TMR_TxRx on", "MNU_Disconnect enabled",
                            "MNU_Download disabled", "MNU_Upload disabled"));
    EXPECT_TRUE(form.Online);
    EXPECT_EQ(form.Current_Request, "ALWAYS");
}

TEST_F(Upload, FactoryFileIsMarkedButNotSaved) {
    document.File_Stem = "DEFAULT";
    start();
    scanTo(2);
    scanTo(1);
    EXPECT_THAT(journal.beginningWith("MNU_Save"), ElementsAre("MNU_Save disabled"));
    EXPECT_EQ(mainForm.caption(), "* default.abc - Zorvane");
}

TEST_F(Upload, FailedBlocksWithoutALostLinkFinishAndStayOffline) {
    addScanBlock(300, 309, "ALWAYS");
    start();
    link.image[100] = 42;
    link.finishScan(false);
    tick();
    scanTo(2, false);
    scanTo(3, false, "Illegal data address (exception 2)");
    journal.clear();
    scanTo(1);
    EXPECT_THAT(journal.lines(), ElementsAre("TMR_Actualiza_valores off", "Porcentaje at 3", "link StopScan",
                                             "link ClosePort", "link EndSession", "FLX_Settings redraw off",
                                             "FLX_Settings redraw on", "FLX_Settings filled with 1",
                                             "caption = \"* site7.abc - Zorvane\"", "MNU_Save enabled",
                                             "panel 4 = \"Ready\"", "Porcentaje unloaded", "form enabled"));
    EXPECT_FALSE(form.Online);
    EXPECT_EQ(cell().Value, "42");
}

TEST_F(Upload, EachFailedExchangeIsARecord) {
    start();
    link.finishScan(false);
    tick();
    scanTo(2, false);
    scanTo(1, false, "Illegal data address (exception 2)");
    ASSERT_EQ(form.Transfer_Errors.size(), 3U);
    const Info_Rec_Errors& second = form.Transfer_Errors[1];
    EXPECT_EQ(second.Start_Address, "100");
    EXPECT_EQ(second.End_Address, "109");
    EXPECT_EQ(second.Function_Text, "FC 3");
    EXPECT_EQ(second.Register, "");
    EXPECT_EQ(second.Value, "");
    EXPECT_EQ(second.Response, "No response");
    EXPECT_EQ(second.Retry, 2);
    const Info_Rec_Errors& third = form.Transfer_Errors[2];
    EXPECT_EQ(third.Start_Address, "200");
    EXPECT_EQ(third.End_Address, "219");
    EXPECT_EQ(third.Response, "Illegal data address (exception 2)");
    EXPECT_EQ(third.Retry, 1);
}

TEST_F(Upload, CountsFromTheClearedCounters) {
    link.transactions = 9;
    start();
    tick();
    EXPECT_EQ(form.Retry_Count, 0);
    link.finishScan(true);
    tick();
    EXPECT_EQ(form.Retry_Count, 1);
}

TEST_F(Upload, AnExchangeIsCountedOnceHoweverManyTicksSeeIt) {
    start();
    link.finishScan(false);
    tick();
    tick();
    EXPECT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_EQ(form.Retry_Count, 1);
}

TEST_F(Upload, SilentControllerFailsAtTheFirstChangeOfBlock) {
    start();
    link.lost = true;
    link.finishScan(false);
    tick();
    EXPECT_THAT(journal.lines(), ElementsAre("TMR_Actualiza_valores off", "TMR_Actualiza_valores on"));
    journal.clear();
    scanTo(2, false);
    EXPECT_THAT(journal.lines(), ElementsAre("TMR_Actualiza_valores off", "Porcentaje at 1", "link StopScan",
                                             "link ClosePort", "link EndSession",
                                             "Porcentaje label = \"Error. The controller does not respond.\"",
                                             "Porcentaje closing", "form enabled", "panel 2 = \"Offline\"",
                                             "panel 4 = \"Error. The controller does not respond.\""));
    EXPECT_EQ(cell().Value, "");
    EXPECT_FALSE(form.Dirty);
    EXPECT_FALSE(form.Comm_Active);
    EXPECT_FALSE(form.Upload_Active);
}

TEST_F(Upload, CancelWithYesDisconnectsAndChangesNoCell) {
    start();
    mainForm.answers = {Msgb_Code_Yes};
    BOT_Cancel_Click(comm);
    tick();
    EXPECT_THAT(
        journal.lines(),
        ElementsAre("link PauseScan",
                    "Msgb 36 \"Zorvane\": \"The transfer is not complete. Do you want to abort anyway?\"",
                    "link ResumeScan", "TMR_Actualiza_valores off", "MNU_Disconnect disabled",
                    "TMR_Actualiza_online off", "TMR_TxRx off", "link StopScan", "link ClosePort",
                    "panel 5 = \"\"", "panel 6 = \"\"", "panel 2 = \"Offline\"", "link EndSession",
                    "MNU_Download enabled", "MNU_Upload enabled", "Porcentaje unloaded",
                    "panel 4 = \"Upload cancelled...\"", "form enabled"));
    EXPECT_FALSE(form.Upload_Active);
    EXPECT_FALSE(form.Comm_Active);
    EXPECT_EQ(cell().Value, "");
    EXPECT_FALSE(mainForm.timerEnabled(Timer_Name::TMR_Actualiza_valores));
}

TEST_F(Upload, WithoutAWishToCancelNothingIsCancelled) {
    bool cancelled = true;
    PRO_Verifica_Cancelar(comm, true, cancelled);
    EXPECT_FALSE(cancelled);
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(Upload, CancelWithNoGoesOn) {
    start();
    mainForm.answers = {Msgb_Code_No};
    BOT_Cancel_Click(comm);
    tick();
    EXPECT_THAT(
        journal.lines(),
        ElementsAre("link PauseScan",
                    "Msgb 36 \"Zorvane\": \"The transfer is not complete. Do you want to abort anyway?\"",
                    "link ResumeScan", "TMR_Actualiza_valores off", "TMR_Actualiza_valores on"));
    EXPECT_TRUE(form.Upload_Active);
}

TEST_F(Upload, CancelClosedWithoutAnAnswerGoesOn) {
    start();
    mainForm.answers = {Msgb_Code_Cancel};
    BOT_Cancel_Click(comm);
    EXPECT_FALSE(form.Cancel_Requested);
}

TEST_F(Upload, TheNextUploadCountsItsExchangesAnew) {
    start();
    scanTo(2, false);
    link.finishScan(false);
    tick();
    link.lost = true;
    scanTo(1, false);
    EXPECT_FALSE(form.Comm_Active);
    form.Retry_Count = 5;
    link.lost = false;
    start();
    link.finishScan(false);
    tick();
    ASSERT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_EQ(form.Transfer_Errors[0].Retry, 1);
}

TEST_F(Upload, AnUploadIntoADocumentThatCameAfterAnotherGoesOn) {
    PRO_Limpia_Modelo(document);
    document.Fields.redim(highestField);
    addField(1, 1).Cells(1, 1).Address = "100";
    addScanBlock(100, 109);
    start();
    tick();
    EXPECT_TRUE(form.Upload_Active);
}

TEST_F(Upload, SecondUploadWhileActiveDoesNotStartButClearsTheRecords) {
    start();
    scanTo(2, false);
    form.Transfer_Log.emplace_back();
    journal.clear();
    MNU_Upload_Click(comm);
    EXPECT_THAT(journal.lines(), IsEmpty());
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_THAT(form.Transfer_Log, IsEmpty());
    EXPECT_TRUE(form.Comm_Active);
}

TEST_F(Upload, ACancelOfTheLastTransferDoesNotCancelTheNext) {
    form.Cancel_Requested = true;
    start();
    tick();
    EXPECT_TRUE(form.Upload_Active);
}

TEST_F(Upload, WithoutScanBlocksTheBarHasNoLengthAndTheEndIsTheLinks) {
    link.blockCount = 0;
    MNU_Upload_Click(comm);
    EXPECT_EQ(mainForm.progress.maximum(), 0);
    link.lost = true;
    link.blockIndex = 0;
    journal.clear();
    tick();
    EXPECT_THAT(journal.beginningWith("Porcentaje at"), IsEmpty());
    EXPECT_EQ(mainForm.panel(Panel::Message), "Error. The controller does not respond.");
}

TEST_F(Upload, TwoPassesNeedTheFirstBlockTwice) {
    form.Scan_Passes = 2;
    start();
    scanTo(2);
    scanTo(1);
    EXPECT_TRUE(form.Upload_Active);
    EXPECT_EQ(form.Pass_Count, 1);
    scanTo(2);
    scanTo(1);
    EXPECT_FALSE(form.Upload_Active);
    EXPECT_EQ(mainForm.progress.value(), 4);
}

TEST_F(Upload, LinkLostInTheSecondPassForgetsTheFirst) {
    form.Scan_Passes = 2;
    start();
    scanTo(2);
    scanTo(1);
    EXPECT_EQ(form.Pass_Count, 1);
    link.lost = true;
    scanTo(2, false);
    EXPECT_FALSE(form.Upload_Active);
    EXPECT_EQ(form.Pass_Count, 0);
}

TEST_F(Upload, BarThatIsFullStaysFull) {
    link.blockCount = 1;
    start();
    scanTo(2);
    scanTo(3);
    EXPECT_EQ(mainForm.progress.value(), 1);
}

TEST_F(Upload, TransactionCountMayWrap) {
    start();
    link.transactions = 255;
    tick();
    scanTo(2, false);
    EXPECT_EQ(link.transactions, 0);
    EXPECT_EQ(form.Transfer_Errors.size(), 1U);
}

TEST_F(Upload, AFailureAtTheStartStillCountsAsActive) {
    form.Scan_Passes = 2'000'000'000;
    link.blockCount = 2'000'000'000;
    EXPECT_NO_THROW(MNU_Upload_Click(comm));
    EXPECT_TRUE(form.Comm_Active);
    EXPECT_FALSE(form.Upload_Active);
}

TEST_F(Upload, FailedReadOfABlockThatTheTemplateLacksIsFailure9) {
    start();
    form.Scan_Index = 9;
    link.finishScan(false);
    EXPECT_THROW(tick(), Run_Time_Failure);
}

TEST_F(Upload, AnUploadWhoseDocumentIsGoneIsDropped) {
    start();
    form.Pass_Count = 1;
    link.image[100] = 7;
    PRO_Limpia_Modelo(document);
    document.Fields.redim(highestField);
    addField(1, 1).Cells(1, 1).Address = "100";
    scanTo(2, false);
    EXPECT_THAT(journal.lines(), ElementsAre("TMR_Actualiza_valores off", "link StopScan", "link ClosePort",
                                             "link EndSession", "Porcentaje unloaded", "form enabled"));
    EXPECT_EQ(form.Pass_Count, 0);
    EXPECT_FALSE(form.Upload_Active);
    EXPECT_FALSE(form.Comm_Active);
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_EQ(cell().Value, "");
}

// What an upload came to.

TEST_F(Upload, ItsResultCountsValuesAndNamesEveryBlock) {
    start();
    EXPECT_EQ(form.Last_Upload.end, Transfer_End::None);
    link.readings[205] = {Reading_Age::Never, "Illegal data address (exception 2)"};
    scanTo(2);
    scanTo(1);
    const Upload_Result& result = form.Last_Upload;
    EXPECT_EQ(result.end, Transfer_End::Finished);
    EXPECT_EQ(result.passes, 1);
    EXPECT_EQ(result.values, 1);
    EXPECT_THAT(result.blocks, ElementsAre(Block_Result{100, 109, Request_End::Good, ""},
                                           Block_Result{200, 219, Request_End::Refused,
                                                        "Illegal data address (exception 2)"}));
}

TEST_F(Upload, ABlockThatEndsBeforeItBeginsIsNotAmongThoseThatWereRead) {
    addScanBlock(300, 299);
    start();
    scanTo(2);
    scanTo(3);
    scanTo(1);
    const Block_Result& block = form.Last_Upload.blocks.back();
    EXPECT_EQ(block, (Block_Result{300, 299, Request_End::Not_Sent, "No registers from 300 on"}));
    EXPECT_TRUE(block.failed());
}

TEST_F(Upload, ABlockThatNobodyReadIsNotSentButHasntFailed) {
    link.readings[100] = {Reading_Age::Never, std::nullopt};
    start();
    scanTo(2);
    scanTo(1);
    const Block_Result& block = form.Last_Upload.blocks.front();
    EXPECT_EQ(block, (Block_Result{100, 109, Request_End::Not_Sent, ""}));
    EXPECT_FALSE(block.failed());
}

TEST_F(Upload, ItsResultSaysHowElseItEnded) {
    start();
    link.lost = true;
    scanTo(2, false);
    EXPECT_EQ(form.Last_Upload.end, Transfer_End::Lost);
    link.lost = false;
    start();
    EXPECT_EQ(form.Last_Upload.end, Transfer_End::None);
    form.Cancel_Requested = true;
    tick();
    EXPECT_EQ(form.Last_Upload.end, Transfer_End::Cancelled);
    start();
    form.Scan_Index = 9; // a block that the template lacks
    link.finishScan(false);
    EXPECT_THROW(tick(), Run_Time_Failure);
    EXPECT_EQ(form.Last_Upload.end, Transfer_End::Failed);
    form.Comm_Active = false;
    start();
    PRO_Limpia_Modelo(document);
    tick();
    EXPECT_EQ(form.Last_Upload.end, Transfer_End::Dropped);
}

} // namespace
} // namespace zorvane
