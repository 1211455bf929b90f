// SPDX-License-Identifier: MIT
// What the message bar is told of transfers and of polling.
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/download.h"
#include "comm/transfer/online.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_bar.h"
#include "comm/transfer/upload.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::Exchange;
using doubles::Write_Script;

/// A field "Regulation" of three rows and two columns, of which the second is sent, and one scan block.
struct Transfer_Bar : ::testing::Test, doubles::Comm_Bench {
    Transfer_Bar() : field(addField(3, 2)) {
        document.File_Stem = "SITE7";
        document.File_Extension = "ABC";
        field.Description = "Regulation";
        for (const std::int32_t row : {1, 2, 3})
            cell(row, "100" + std::to_string(row), "5");
        addScanBlock(1001, 1003);
    }

    void cell(std::int32_t row, const std::string& address, const std::string& value) {
        field.Cells(row, 2).Address = address;
        field.Cells(row, 2).Value = value;
    }
    /// The bar's line of a topic as "note: text" or "warning: text" and its buttons in brackets.
    [[nodiscard]] std::string line(const std::string& topic) const {
        const Bar_Line* found = mainForm.bar.find(topic);
        if (found == nullptr) return "none";
        std::string text = (found->kind == Bar_Kind::Warning ? "warning: " : "note: ") + found->text;
        for (const Bar_Button& button : found->buttons)
            text += " [" + button.caption + "]";
        return text;
    }
    void press(const std::string& topic) { mainForm.bar.find(topic)->buttons.at(0).press(); }
    void age(std::int32_t address, Reading_Age is, std::optional<std::string> fault = std::nullopt) {
        link.readings[address] = {is, std::move(fault)};
    }

    Field_Rec& field;
};

// Before a download.

TEST_F(Transfer_Bar, DownloadOfWholeRegistersTellsNothingBeforehand) {
    for (const std::int32_t address : {1001, 1002, 1003})
        age(address, Reading_Age::Never);
    MNU_Download_Click(comm);
    EXPECT_EQ(line("unread before download"), "none");
}

TEST_F(Transfer_Bar, HalfWhoseRegisterWasNeverReadIsToldBeforeTheFirstEffect) {
    cell(2, "4660/HI", "5");
    age(4660, Reading_Age::Never);
    std::size_t effectsBefore = 1;
    mainForm.bar.changed = [&] {
        if (effectsBefore == 1) effectsBefore = journal.lines().size();
    };
    MNU_Download_Click(comm);
    EXPECT_EQ(effectsBefore, 0U);
    EXPECT_EQ(
        line("unread before download"),
        "warning: This download is built from registers that were not read since the port was opened. In "
        "4660 the half, or the part of a time, that no cell sets becomes 0. [Upload first]");
    EXPECT_EQ(link.image[4660], 0x0500); // sent all the same
}

TEST_F(Transfer_Bar, HalfWhoseRegisterWasReadIsNoMatter) {
    cell(2, "4660/HI", "5");
    MNU_Download_Click(comm);
    EXPECT_EQ(line("unread before download"), "none");
}

TEST_F(Transfer_Bar, HalfOfAnEarlierOpeningIsANote) {
    cell(2, "4660/HI", "5");
    age(4660, Reading_Age::EarlierOpening);
    MNU_Download_Click(comm);
    EXPECT_EQ(
        line("unread before download"),
        "note: This download is built from registers that were not read since the port was opened. In 4660 "
        "the half, or the part of a time, that no cell sets becomes what was read at an earlier opening "
        "of the port. [Upload first]");
}

TEST_F(Transfer_Bar, BlocksOfABoardNameTheRegistersThatBecomeZero) {
    document.Controller_Model = "R7702-16";
    addDownloadBlock("1001", "1020", 0);
    addDownloadBlock("1030", "1030", 0);
    for (std::int32_t address = 1001; address <= 1030; ++address)
        age(address, Reading_Age::Never);
    age(1010, Reading_Age::ThisOpening);
    MNU_Download_Click(comm);
    EXPECT_EQ(line("unread before download"),
              "warning: This download is built from registers that were not read since the port was opened. "
              "Registers 1004-1009, 1011-1020 of the controller become 0. [Upload first]");
}

TEST_F(Transfer_Bar, UploadFirstUploadsWhenNothingRuns) {
    cell(2, "4660/HI", "5");
    age(4660, Reading_Age::Never);
    MNU_Download_Click(comm);
    journal.clear();
    press("unread before download");
    EXPECT_EQ(journal.lines().front(), "link SetScanMode NONE");
    EXPECT_TRUE(form.Upload_Active);
    journal.clear();
    press("unread before download"); // while that runs
    EXPECT_TRUE(journal.lines().empty());
}

// After a download.

TEST_F(Transfer_Bar, DownloadTellsWhatItsReadyStandsFor) {
    link.writes = {Write_Script{Exchange{}}, Write_Script{Exchange{false, "BUSY"}},
                   Write_Script{Exchange{false}, Exchange{false}}};
    MNU_Download_Click(comm);
    EXPECT_EQ(mainForm.panel(Panel::Message), "Ready");
    EXPECT_EQ(line("download"),
              "warning: Download of 3 values: 1 taken, 1 refused, 1 not answered. Not taken for "
              "certain: @1002, @1003. \"Ready\" stands there for all of it. [Log...]");
}

TEST_F(Transfer_Bar, DownloadThatWasTakenWholeIsANote) {
    MNU_Download_Click(comm);
    EXPECT_EQ(line("download"),
              "note: Download of 3 values: 3 taken, 0 refused, 0 not answered. \"Ready\" stands "
              "there for all of it. [Log...]");
}

TEST_F(Transfer_Bar, ValuesWithoutAWriteOfTheirOwnAreCountedApart) {
    addNotDownloadable("1001");
    cell(3, "NONE", "5");
    MNU_Download_Click(comm);
    EXPECT_EQ(line("download"),
              "note: Download of 3 values: 1 taken, 0 refused, 0 not answered, 2 without a write "
              "of their own. \"Ready\" stands there for all of it. [Log...]");
}

TEST_F(Transfer_Bar, WriteWhoseAnswerMayBeAnotherOnesIsNotCertain) {
    link.nextOutcome = Write_Outcome::Uncertain;
    link.writes = {Write_Script{Exchange{true, "Acknowledge (exception 5)"}}};
    MNU_Download_Click(comm);
    EXPECT_EQ(
        line("download"),
        "warning: Download of 3 values: 2 taken, 0 refused, 0 not answered, 1 not certain. Not taken for "
        "certain: @1001. \"Ready\" stands there for all of it. [Log...]");
}

TEST_F(Transfer_Bar, NobodyButAnEchoProvesNothing) {
    link.seen = false;
    MNU_Download_Click(comm);
    EXPECT_EQ(mainForm.panel(Panel::Message), "Ready");
    EXPECT_EQ(
        line("download"),
        "warning: Download of 3 values: 3 taken, 0 refused, 0 not answered. \"Ready\" stands there for all "
        "of it. No answer of a controller was seen on this opening of the port: nothing was read, and what "
        "came back repeats the requests, as an adapter that echoes does. Nothing proves that the values "
        "arrived; an upload tells. [Log...]");
}

TEST_F(Transfer_Bar, CancelledDownloadTellsWhatItDidNotReach) {
    Exchange cancels;
    cancels.before = [this] { form.Cancel_Requested = true; };
    link.writes = {Write_Script{}, Write_Script{cancels, Exchange{}}};
    MNU_Download_Click(comm);
    EXPECT_EQ(mainForm.panel(Panel::Message), "Download cancelled...");
    EXPECT_EQ(line("download"),
              "warning: Cancelled download of 3 values: 1 taken, 0 refused, 1 not answered, 1 not "
              "reached. Not taken for certain: @1002. [Log...]");
}

TEST_F(Transfer_Bar, LostDownloadTellsWhatItDidNotReach) {
    addField(1, 2).Cells(1, 2).Address = "2001";
    link.writes = {Write_Script{}, Write_Script{},
                   Write_Script{Exchange{false, "", [this] { link.lost = true; }}}};
    MNU_Download_Click(comm);
    EXPECT_EQ(line("download"),
              "warning: Download of 4 values, given up as the controller does not respond: 2 "
              "taken, 0 refused, 1 not answered, 1 not reached. Not taken for certain: @1003. "
              "[Log...]");
}

TEST_F(Transfer_Bar, LogOpensTheReportOfThatTransfer) {
    MNU_Download_Click(comm);
    journal.clear();
    press("download");
    EXPECT_EQ(journal.lines(), std::vector<std::string>{"FrmStatus shown for the download"});
}

TEST_F(Transfer_Bar, CountsOfADownloadAddUpToItsValues) {
    link.writes = {Write_Script{Exchange{}}, Write_Script{Exchange{false, "BUSY"}},
                   Write_Script{Exchange{false}}};
    MNU_Download_Click(comm);
    const Download_Result& result = form.Last_Download;
    EXPECT_EQ(result.taken + result.refused + result.unanswered + result.uncertain + result.unsendable +
                  result.withoutWrite + result.notReached(),
              result.values);
    EXPECT_EQ(result.missed,
              (std::vector<Missed_Value>{{"1002", Value_End::Refused}, {"1003", Value_End::Unanswered}}));
}

// After an upload.

struct Upload_Bar : Transfer_Bar {
    Upload_Bar() {
        addScanBlock(2001, 2002);
        Field_Rec& timers = addField(1, 2);
        timers.Description = "Timers";
        timers.Cells(1, 2).Address = "2001/LO";
    }
    /// Two blocks are read, and the index is back.
    void upload() {
        MNU_Upload_Click(comm);
        for (const std::int32_t index : {2, 1}) {
            link.finishScan(true);
            link.blockIndex = index;
            TMR_Actualiza_valores_Timer(comm);
        }
    }
};

TEST_F(Upload_Bar, UploadThatReadEverythingTellsNothing) {
    upload();
    EXPECT_EQ(mainForm.panel(Panel::Message), "Ready");
    EXPECT_EQ(line("upload"), "none");
}

TEST_F(Upload_Bar, PagesOfABlockThatWasNeverReadShowZero) {
    for (const std::int32_t address : {2001, 2002})
        age(address, Reading_Age::Never, "BUSY");
    upload();
    EXPECT_EQ(line("upload"),
              "warning: The upload could not read registers 2001-2002 (BUSY). 0 is shown in place "
              "of values on: Timers.");
}

TEST_F(Upload_Bar, PagesOfABlockThatWasReadBeforeShowThatReading) {
    for (const std::int32_t address : {1001, 1002, 1003})
        age(address, Reading_Age::EarlierOpening, "");
    age(2001, Reading_Age::Never, "Illegal data address (exception 2)");
    upload();
    EXPECT_EQ(
        line("upload"),
        "warning: The upload could not read registers 1001-1003 (no answer), 2001-2002 (Illegal data address "
        "(exception 2)). An older reading, or what was last written, is shown on: Regulation. 0 is shown in "
        "place of values on: Timers.");
}

TEST_F(Upload_Bar, BlockThatNoPageShowsIsNamedAlone) {
    age(2002, Reading_Age::Never, "BUSY");
    upload();
    EXPECT_EQ(
        line("upload"),
        "warning: The upload could not read registers 2001-2002 (BUSY). No page shows a value of them.");
}

TEST_F(Upload_Bar, NextUploadThatReadsAllTakesTheLineBack) {
    age(2001, Reading_Age::Never, "BUSY");
    upload();
    age(2001, Reading_Age::ThisOpening);
    upload();
    EXPECT_EQ(line("upload"), "none");
}

// Polling.

struct Polling_Bar : Transfer_Bar {
    Polling_Bar() {
        document.Holding_Blocks(1).Request = "ALWAYS";
        document.Always_Block_Count = 1;
        goOnline(comm);
    }
    void tick() { TMR_Actualiza_online_Timer(comm); }
    int told = 0;
};

TEST_F(Polling_Bar, RefusedBlockIsToldOnceWithItsTime) {
    tick();
    EXPECT_EQ(line("polling"), "none");
    age(1001, Reading_Age::ThisOpening, "Illegal data address (exception 2)");
    tick();
    EXPECT_EQ(line("polling"),
              "warning: Polled registers 1001-1003 are refused since 14:03:22 (Illegal data "
              "address (exception 2)): the values shown of them are older than that. [Log...]");
    mainForm.bar.changed = [this] { ++told; };
    mainForm.time = "14:03:23";
    tick();
    EXPECT_EQ(told, 0);
}

TEST_F(Polling_Bar, SilenceIsNotCalledRefusal) {
    age(1001, Reading_Age::ThisOpening, "");
    tick();
    EXPECT_EQ(line("polling"),
              "warning: Polled registers 1001-1003 are not answered since 14:03:22: the values "
              "shown of them are older than that. [Log...]");
}

TEST_F(Polling_Bar, LostLinkIsLeftToItsNotice) {
    link.lost = true;
    age(1001, Reading_Age::ThisOpening, "");
    tick();
    EXPECT_EQ(line("polling"), "none");
}

TEST_F(Polling_Bar, BlockThatIsReadAgainTakesTheLineBack) {
    age(1001, Reading_Age::ThisOpening, "BUSY");
    tick();
    age(1001, Reading_Age::ThisOpening);
    tick();
    EXPECT_EQ(line("polling"), "none");
}

TEST_F(Polling_Bar, BlockThatIsNotPolledIsNoMatter) {
    addScanBlock(2001, 2002);
    age(2001, Reading_Age::ThisOpening, "BUSY");
    tick();
    EXPECT_EQ(line("polling"), "none");
}

} // namespace
} // namespace zorvane
