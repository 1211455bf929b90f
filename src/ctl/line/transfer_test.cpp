// SPDX-License-Identifier: MIT
// What a transfer in a terminal comes to: outcome, records, refusals, and a session that has ended.

#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/cancel.h"
#include "ctl/line/transfer.h"
#include "ctl/line/transfer_text.h"

#include <gmock/gmock.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

using doubles::Comm_Bench;
using doubles::Exchange;
using doubles::Write_Script;
using testing::ElementsAre;
using testing::IsEmpty;

/// A main form whose waits let the scripted link go on and the upload's timer tick.
class Stepping_Form : public Held_Form {
  public:
    explicit Stepping_Form(Comm_Bench& bench)
        : Held_Form(bench.document.Field_Count, firstField), bench_(bench) {}

    std::function<void()> step; ///< one event of the link
    void wait_until(const std::function<bool()>& condition) override {
        for (int events = 0; !condition(); ++events) {
            if (events > 1000) throw std::runtime_error("nothing ends this wait");
            if (step)
                step();
            else
                scanOn();
            bench_.link.advance();
            if (onTimer) onTimer(Timer_Name::TMR_Actualiza_valores);
        }
    }

  private:
    /// The blocks come by, and all is well.
    void scanOn() { bench_.link.blockIndex = bench_.link.blockIndex == 1 ? 2 : 1; }

    Comm_Bench& bench_;
};

class Transfer : public testing::Test {
  protected:
    Transfer() {
        bench.addField(1, 2).Cells(1, 2).Address = "100";
        bench.addScanBlock(100, 101, "ALWAYS");
        bench.addScanBlock(110, 111);
        bench.link.image = {{100, 65535}, {111, 7}};
    }
    /// The scan reads its blocks in turn; the second one may fail.
    std::function<void()> scan(Stepping_Form&, bool good, const std::string& answer = {}) {
        return [this, good, answer] {
            bench.link.finishScan(bench.link.blockIndex == 1 || good, answer);
            bench.link.blockIndex = bench.link.blockIndex == 1 ? 2 : 1;
        };
    }
    Cell_Rec& cell() { return bench.document.Fields(1).Cells(1, 2); }
    std::vector<std::string> told(const std::string& name, const Transfer_Report& report) {
        std::ostringstream err;
        tellTransfer(err, name, report);
        std::vector<std::string> lines;
        std::istringstream in(err.str());
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        return lines;
    }

    Comm_Bench bench;
};

TEST_F(Transfer, AFinishedUploadFillsTheDocumentAndEndsTheSession) {
    Stepping_Form mainForm(bench);
    mainForm.step = scan(mainForm, true);
    const Comm_Context comm{bench.document, bench.form, bench.link, mainForm};
    const Transfer_Report report = runUpload(comm, mainForm);
    EXPECT_TRUE(report.complete());
    EXPECT_EQ(report.passes, 1);
    EXPECT_EQ(report.panel4, "Ready");
    EXPECT_EQ(cell().Value, "-1");
    EXPECT_FALSE(bench.form.Online);
    EXPECT_EQ(mainForm.panel(Panel::LinkState), "Offline");
    EXPECT_THAT(told("Upload", report), IsEmpty());
    EXPECT_EQ(scannedRegisters(comm), (compare::Register_Values{{100, 65535}, {101, 0}, {110, 0}, {111, 7}}));
}

TEST_F(Transfer, ARefusedBlockIsToldThoughTheUploadFinishes) {
    Stepping_Form mainForm(bench);
    mainForm.step = scan(mainForm, false, "Illegal data address (exception 2)");
    const Transfer_Report report = runUpload({bench.document, bench.form, bench.link, mainForm}, mainForm);
    EXPECT_TRUE(report.finished());
    EXPECT_FALSE(report.complete());
    EXPECT_THAT(told("Upload", report),
                ElementsAre("zorvanectl: Registers 110-111 were not read: Illegal data address (exception 2)",
                            "zorvanectl: The controller refused 1 of the requests above. Check that the "
                            "template fits the controller."));
}

TEST_F(Transfer, ATryWithoutAnAnswerIsARecordAndNoRefusal) {
    Stepping_Form mainForm(bench);
    bool first = true;
    mainForm.step = [&] {
        bench.link.finishScan(!first, {});
        if (!first) bench.link.blockIndex = bench.link.blockIndex == 1 ? 2 : 1;
        first = false;
    };
    const Transfer_Report report = runUpload({bench.document, bench.form, bench.link, mainForm}, mainForm);
    EXPECT_TRUE(report.complete());
    ASSERT_EQ(report.errors.size(), 1U);
    EXPECT_EQ(transferJson(report)["errors"].dump(),
              R"([{"Start_Address":"100","End_Address":"101","Function_Text":"FC 3","Register":"",)"
              R"("Value":"","Response":"No response","Retry":1}])");
}

TEST_F(Transfer, ALostLinkFailsAndLeavesTheDocument) {
    Stepping_Form mainForm(bench);
    cell().Value = "5";
    mainForm.step = [&] {
        bench.link.lost = true;
        bench.link.blockIndex = 2;
    };
    const Transfer_Report report = runUpload({bench.document, bench.form, bench.link, mainForm}, mainForm);
    EXPECT_EQ(report.outcome, Transfer_Outcome::Failed);
    EXPECT_EQ(report.passes, 0);
    EXPECT_EQ(cell().Value, "5");
    EXPECT_THAT(
        told("Upload", report),
        ElementsAre("zorvanectl: Error. The controller does not respond. Check the cable, the port, its "
                    "settings and the slave number."));
    EXPECT_EQ(transferJson(report).dump(), R"({"outcome":"failed","passes":0,"errors":[],"log":[],)"
                                           R"("panel4":"Error. The controller does not respond."})");
}

TEST_F(Transfer, ACancelledUploadLeavesTheDocument) {
    Stepping_Form mainForm(bench);
    const Comm_Context comm{bench.document, bench.form, bench.link, mainForm};
    cell().Value = "5";
    mainForm.step = [&] { BOT_Cancel_Click(comm); };
    const Transfer_Report report = runUpload(comm, mainForm);
    EXPECT_EQ(report.outcome, Transfer_Outcome::Cancelled);
    EXPECT_EQ(report.panel4, "Upload cancelled...");
    EXPECT_EQ(cell().Value, "5");
    EXPECT_THAT(told("Upload", report), ElementsAre("zorvanectl: Upload cancelled..."));
}

TEST_F(Transfer, AFailureInATickEndsTheUpload) {
    Stepping_Form mainForm(bench);
    cell().Address = "99999999999";
    mainForm.step = scan(mainForm, true);
    const Transfer_Report report = runUpload({bench.document, bench.form, bench.link, mainForm}, mainForm);
    EXPECT_EQ(report.outcome, Transfer_Outcome::Failed);
    ASSERT_TRUE(report.failure);
    EXPECT_EQ(report.failure->number, 6);
    EXPECT_THAT(told("Upload", report),
                ElementsAre("zorvanectl: Upload stopped: Overflow (failure 6). Look for a number that is too "
                            "large for its place."));
}

TEST_F(Transfer, ADownloadWritesAndTellsEveryFailedWrite) {
    Stepping_Form mainForm(bench);
    cell().Value = "42";
    bench.link.writes = {Write_Script{Exchange{false, "Illegal data value (exception 3)", {}}}};
    const Transfer_Report report = runDownload({bench.document, bench.form, bench.link, mainForm}, mainForm);
    EXPECT_TRUE(report.finished());
    EXPECT_FALSE(report.complete());
    EXPECT_THAT(report.refusals, ElementsAre("Write: 42 @100 ...Failed"));
    EXPECT_EQ(report.panel4, "Ready");
}

TEST_F(Transfer, ACancelledDownloadEndsAtOnce) {
    Stepping_Form mainForm(bench);
    const Comm_Context comm{bench.document, bench.form, bench.link, mainForm};
    cell().Value = "42";
    Exchange slow;
    slow.before = [&] { BOT_Cancel_Click(comm); };
    bench.link.writes = {Write_Script{slow, slow}};
    const Transfer_Report report = runDownload(comm, mainForm);
    EXPECT_EQ(report.outcome, Transfer_Outcome::Cancelled);
    EXPECT_EQ(report.panel4, "Download cancelled...");
}

TEST_F(Transfer, AFailureInADownloadEndsTheSession) {
    Stepping_Form mainForm(bench);
    cell().Address = "99999999999";
    cell().Value = "1";
    const Transfer_Report report = runDownload({bench.document, bench.form, bench.link, mainForm}, mainForm);
    EXPECT_EQ(report.outcome, Transfer_Outcome::Failed);
    EXPECT_EQ(report.failure->number, 6);
    EXPECT_FALSE(bench.form.Download_Active);
    EXPECT_EQ(mainForm.panel(Panel::LinkState), "Offline");
}

} // namespace
} // namespace zorvane::ctl
