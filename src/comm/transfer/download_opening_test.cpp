// SPDX-License-Identifier: MIT
// A download over a port whose opening goes on, as a connection to a network does.
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/download.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// One field with one value to send, and a block that is polled.
struct Opening_Download : ::testing::Test, doubles::Comm_Bench {
    Opening_Download() {
        Field_Rec& field = addField(1, 2);
        field.Cells(1, 2).Address = "100";
        field.Cells(1, 2).Value = "120";
        addScanBlock(300, 309, "ALWAYS");
        link.opening = true;
        mainForm.advance = [this] {
            if (!whileOpening) return link.advance();
            std::exchange(whileOpening, nullptr)();
            return true;
        };
    }

    /// Downloads; `event` happens in the wait for the port. The lines from the start of the walk on.
    std::vector<std::string> downloaded(std::function<void()> event) {
        whileOpening = std::move(event);
        MNU_Download_Click(comm);
        const auto& lines = journal.lines();
        return {std::find(lines.begin(), lines.end(), "link ClearCounters") + 1, lines.end()};
    }

    std::function<void()> whileOpening;
};

TEST_F(Opening_Download, BeginsItsWalkWhenThePortIsOpen) {
    const auto lines = downloaded([this] {
        EXPECT_TRUE(form.Download_Active);
        link.opening = false;
    });
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0], "link PresetSingleRegister 7 100 120");
    EXPECT_EQ(lines[1], "panel 4 = \"Write: 120 @100 ...Completed\"");
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Finished);
}

TEST_F(Opening_Download, EndsAsForASilentControllerWhenThePortCantBeOpened) {
    const auto lines = downloaded([this] {
        link.opening = false;
        link.lost = true;
    });
    EXPECT_THAT(lines, ElementsAre("link StopScan", "link ClosePort",
                                   "Porcentaje label = \"Error. The controller does not respond.\"",
                                   "Porcentaje closing", "form enabled", "panel 2 = \"Offline\"",
                                   "panel 4 = \"Error. The controller does not respond.\""));
    EXPECT_FALSE(form.Online) << "though there are blocks to poll, and no record";
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Lost);
}

TEST_F(Opening_Download, CanBeCancelledMeanwhile) {
    mainForm.answers = {Msgb_Code_Yes};
    const auto lines = downloaded([this] { BOT_Cancel_Click(comm); });
    EXPECT_THAT(
        lines,
        ElementsAre("link PauseScan",
                    "Msgb 36 \"Zorvane\": \"The transfer is not complete. Do you want to abort anyway?\"",
                    "link ResumeScan", "MNU_Disconnect disabled", "TMR_Actualiza_online off", "TMR_TxRx off",
                    "link StopScan", "link ClosePort", "panel 5 = \"\"", "panel 6 = \"\"",
                    "panel 2 = \"Offline\"", "link EndSession", "MNU_Download enabled", "MNU_Upload enabled",
                    "Porcentaje unloaded", "panel 4 = \"Download cancelled...\"", "form enabled",
                    "form enabled"));
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Cancelled);
}

TEST_F(Opening_Download, WritesNothingToTheDocumentThatCameMeanwhile) {
    const auto lines = downloaded([this] { ++document.Edition; });
    EXPECT_THAT(lines, ElementsAre("link StopScan", "link ClosePort", "link EndSession",
                                   "Porcentaje unloaded", "form enabled"));
    EXPECT_EQ(form.Last_Download.end, Transfer_End::Dropped);
}

} // namespace
} // namespace zorvane
