// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/online.h"
#include "comm/transfer/registers_to_cells.h"
#include "comm/transfer/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// Online with one field of one row: column 1 is polled (register 100), column 2 is not (register 101).
struct Online : ::testing::Test, doubles::Comm_Bench {
    Online() : field(addField(1, 2)) {
        field.Cells(0, 1).Modbus_Request = "ALWAYS";
        field.Cells(0, 2).Modbus_Request = "NONE";
        field.Cells(1, 1).Address = "100";
        field.Cells(1, 2).Address = "101";
        form.Online = true;
        form.Current_Request = "ALWAYS";
        link.image = {{100, 42}, {101, 43}};
    }

    std::vector<std::string> refreshTick() {
        TMR_Actualiza_online_Timer(comm);
        return journal.take();
    }

    std::vector<std::string> lightTick() {
        TMR_TxRx_Timer(comm);
        return journal.take();
    }

    Field_Rec& field;
};

TEST_F(Online, TickRefreshesOnlyTheColumnsThatAreScanned) {
    field.Cells(1, 2).Value = "kept";
    EXPECT_THAT(refreshTick(),
                ElementsAre("TMR_Actualiza_online off", "FLX_Settings(1,0) = \"42\"", "panel 2 = \"Online\"",
                            "LostCom unloaded", "TMR_Actualiza_online on"));
    EXPECT_EQ(field.Cells(1, 1).Value, "42");
    EXPECT_EQ(field.Cells(1, 2).Value, "kept");
    EXPECT_EQ(form.Poll_Request, "ALWAYS");
}

TEST_F(Online, LostLinkShowsQuestionMarksAndIsToldOnce) {
    link.lost = true;
    EXPECT_THAT(refreshTick(),
                ElementsAre("TMR_Actualiza_online off", "FLX_Settings(1,0) = \"???\"", "form enabled",
                            "panel 2 = \"Retrying\"", "panel 4 = \"The controller does not respond...\"",
                            "LostCom shown", "TMR_Actualiza_online on"));
    EXPECT_EQ(field.Cells(1, 1).Value, "");
    EXPECT_THAT(refreshTick(),
                ElementsAre("TMR_Actualiza_online off", "FLX_Settings(1,0) = \"???\"", "form enabled",
                            "panel 2 = \"Retrying\"", "TMR_Actualiza_online on"));
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_TRUE(form.Comm_Lost_Now);
}

TEST_F(Online, LinkThatComesBackClosesTheNoticeAndEmptiesThePanel) {
    link.lost = true;
    refreshTick();
    link.lost = false;
    EXPECT_THAT(refreshTick(),
                ElementsAre("TMR_Actualiza_online off", "FLX_Settings(1,0) = \"42\"", "panel 2 = \"Online\"",
                            "panel 4 = \"\"", "LostCom unloaded", "TMR_Actualiza_online on"));
    EXPECT_FALSE(form.Lost_Shown);
}

TEST_F(Online, PanelThatSomethingElseWroteIsLeftAlone) {
    link.lost = true;
    refreshTick();
    mainForm.setPanel(Panel::Message, "Write: 12 @100 ...Completed");
    link.lost = false;
    refreshTick();
    EXPECT_EQ(mainForm.panel(Panel::Message), "Write: 12 @100 ...Completed");
}

TEST_F(Online, HalvesAreShownWhileTheLinkIsLost) {
    field.Cells(1, 1).Address = "100/LO";
    link.lost = true;
    EXPECT_THAT(refreshTick(), Contains("FLX_Settings(1,0) = \"42\""));
    EXPECT_EQ(field.Cells(1, 1).Value, "42");
}

TEST_F(Online, ListCellShowsItsTextAndKeepsItsCode) {
    readMessages(field.Cells(1, 1), "(42)Auto");
    refreshTick();
    EXPECT_EQ(mainForm.grid.text(1, 0), "Auto");
    EXPECT_EQ(field.Cells(1, 1).Value, "42");
}

TEST_F(Online, TextAndTimesAreShownAsInATransfer) {
    field.Cells(1, 1).Is_Ascii_Range = true;
    field.Cells(1, 1).Address_End = "100";
    link.image[100] = 0x4142;
    refreshTick();
    EXPECT_EQ(mainForm.grid.text(1, 0), "AB");
    field.Cells(1, 1).Is_Ascii_Range = false;
    field.Cells(1, 1).Format = "TIME";
    link.image[100] = 3725;
    refreshTick();
    EXPECT_EQ(mainForm.grid.text(1, 0), "62:05");
}

TEST_F(Online, CellWithoutARegisterIsLeftAlone) {
    field.Cells(1, 1).Address = "";
    EXPECT_THAT(refreshTick(), Not(Contains(::testing::HasSubstr("FLX_Settings("))));
}

TEST_F(Online, AnotherRowOfTheUpperGridIsShownAtTheNextTick) {
    Field_Rec& second = addField(1, 1);
    second.Cells(0, 1).Modbus_Request = "ALWAYS";
    second.Cells(1, 1).Address = "101";
    mainForm.grid.upperRow = 2;
    EXPECT_THAT(refreshTick(), Contains("FLX_Settings(1,0) = \"43\""));
    EXPECT_EQ(second.Cells(1, 1).Value, "43");
    EXPECT_EQ(field.Cells(1, 1).Value, "");
}

TEST_F(Online, LinkStateIsNotToldDuringATransfer) {
    form.Comm_Active = true;
    EXPECT_THAT(refreshTick(), Not(Contains("panel 2 = \"Online\"")));
}

TEST_F(Online, OfflineTickStopsTheTimer) {
    form.Online = false;
    EXPECT_THAT(refreshTick(), ElementsAre("TMR_Actualiza_online off"));
}

TEST_F(Online, AFailureEndsTheTickAndTheNextOneComes) {
    field.Cells(1, 1).Address = "10000000000";
    EXPECT_THAT(refreshTick(), ElementsAre("TMR_Actualiza_online off", "TMR_Actualiza_online on"));
}

TEST_F(Online, LightsBlinkWithTheCountsAndRxWaitsForATickWithoutTx) {
    link.tx = 1;
    link.rx = 1;
    EXPECT_THAT(lightTick(),
                ElementsAre("TMR_TxRx off", "panel 5 = \"Tx\"", "panel 6 = \"\"", "TMR_TxRx on"));
    EXPECT_THAT(lightTick(),
                ElementsAre("TMR_TxRx off", "panel 5 = \"\"", "panel 6 = \"Rx\"", "TMR_TxRx on"));
    EXPECT_THAT(lightTick(), ElementsAre("TMR_TxRx off", "panel 5 = \"\"", "panel 6 = \"\"", "TMR_TxRx on"));
    EXPECT_EQ(form.Saved_Tx_Count, 1);
    EXPECT_EQ(form.Saved_Rx_Count, 1);
}

TEST_F(Online, LightsStopAtTheFirstTickOffline) {
    form.Online = false;
    link.tx = 1;
    EXPECT_THAT(lightTick(), ElementsAre("TMR_TxRx off"));
}

TEST_F(Online, TimerOfTheTemplateOnlyStopsItself) {
    TMR_Forza_analogas_Timer(comm);
    EXPECT_THAT(journal.lines(), ElementsAre("TMR_Forza_analogas off"));
}

TEST_F(Online, LostCommunicationStopsEverything) {
    form.Comm_Active = true;
    form.Pass_Count = 1;
    PRO_Perdio_Comunicacion(comm);
    EXPECT_THAT(journal.lines(),
                ElementsAre("link StopScan", "link ClosePort", "TMR_Actualiza_online off",
                            "TMR_Actualiza_valores off", "panel 4 = \"The controller does not respond...\"",
                            "link EndSession", "Porcentaje unloaded", "form enabled",
                            "panel 2 = \"Offline\""));
    EXPECT_FALSE(form.Online);
    EXPECT_FALSE(form.Comm_Active);
    EXPECT_EQ(form.Pass_Count, 0);
}

TEST_F(Online, DisconnectLeavesTheSystemOfflineWithItsTransfersOn) {
    MNU_Disconnect_Click(comm);
    EXPECT_THAT(journal.lines(),
                ElementsAre("MNU_Disconnect disabled", "TMR_Actualiza_online off", "TMR_TxRx off",
                            "link StopScan", "link ClosePort", "panel 5 = \"\"", "panel 6 = \"\"",
                            "panel 2 = \"Offline\"", "link EndSession", "MNU_Download enabled",
                            "MNU_Upload enabled"));
    EXPECT_FALSE(form.Online);
}

TEST_F(Online, ClosingTheDocumentEndsTheSession) {
    PRO_Fin_Sesion(comm);
    EXPECT_THAT(journal.take(),
                ElementsAre("MNU_Disconnect disabled", "TMR_Actualiza_online off", "link StopScan",
                            "link ClosePort", "panel 2 = \"\"", "link EndSession"));
    EXPECT_FALSE(form.Online);
    PRO_Fin_Sesion(comm);
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(Online, ItsResultCountsRefreshesAndKeepsTheLastState) {
    goOnline(comm);
    (void)refreshTick();
    link.lost = true;
    (void)refreshTick();
    MNU_Disconnect_Click(comm);
    EXPECT_EQ(form.Last_Polling.refreshes, 2);
    EXPECT_TRUE(form.Last_Polling.lost);
    EXPECT_EQ(form.Last_Polling.gaps, std::vector<Polled_Gap>{});
    goOnline(comm);
    EXPECT_EQ(form.Last_Polling.refreshes, 0);
    EXPECT_FALSE(form.Last_Polling.lost);
}

} // namespace
} // namespace zorvane
