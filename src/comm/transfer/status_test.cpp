// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Status : ::testing::Test, doubles::Comm_Bench {
    Status() {
        form.Transfer_Errors.resize(1);
        form.Transfer_Log.resize(2);
    }
};

TEST_F(Status, ConnectGoesOnlineInSpiteOfTheFailures) {
    Status_Connect(comm, 1);
    EXPECT_THAT(journal.lines(),
                ElementsAre("FrmStatus unloaded", "form enabled", "link SetScanMode ALWAYS",
                            "link PrepareScan", "link StartScan", "TMR_Actualiza_online on", "TMR_TxRx on",
                            "MNU_Disconnect enabled", "MNU_Download disabled", "MNU_Upload disabled"));
    EXPECT_TRUE(form.Online);
    EXPECT_EQ(form.Current_Request, "ALWAYS");
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_THAT(form.Transfer_Log, IsEmpty());
}

TEST_F(Status, RetryRunsTheSameTransferAgain) {
    Status_Retry(comm, 0);
    EXPECT_EQ(journal.lines().front(), "FrmStatus unloaded");
    EXPECT_THAT(journal.lines(), Contains("panel 2 = \"Download\""));
    journal.clear();
    Status_Retry(comm, 1);
    EXPECT_EQ(journal.lines().front(), "FrmStatus unloaded");
    EXPECT_THAT(journal.lines(), Contains("panel 2 = \"Upload\""));
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
}

TEST_F(Status, CancelLeavesTheRecordsAndStaysOffline) {
    Status_CancelProg(comm, 1);
    EXPECT_THAT(journal.lines(), ElementsAre("FrmStatus unloaded", "form enabled"));
    EXPECT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_FALSE(form.Online);
}

TEST_F(Status, FormShowsTheListsAndTheLinksParameters) {
    const Transfer_Status upload = transferStatus(comm, true);
    EXPECT_EQ(upload.TransferMethod, "Upload to PC");
    EXPECT_EQ(upload.PortParameters, link.parameters);
    EXPECT_EQ(upload.DataErrors.size(), 1U);
    EXPECT_EQ(upload.DataWriting.size(), 2U);
    EXPECT_EQ(transferStatus(comm, false).TransferMethod, "Download to Device");
}

} // namespace
} // namespace zorvane
