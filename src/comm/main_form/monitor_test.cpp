// SPDX-License-Identifier: MIT
#include "comm/main_form/monitor.h"
#include "comm/main_form/testing/comm_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Monitor : ::testing::Test, doubles::Comm_Bench {
    std::vector<std::string> tick() {
        TMR_Verifica_monitor_Timer(comm);
        return journal.take();
    }

    std::vector<std::string> press(int button) {
        PRO_Toolbar_Boton(comm,
                          Toolbar_Actions{[this] { journal.add("MNU_Open_Click"); },
                                          [this] { journal.add("Acercade shown"); },
                                          [this] { journal.add("program ends"); }},
                          button);
        return journal.take();
    }
};

TEST_F(Monitor, OpensWhereTheUserLastHadIt) {
    form.Monitor_Place = {100, 200, 300, 400};
    separador4_Click(comm);
    EXPECT_THAT(journal.lines(), ElementsAre("link ShowMonitor 100 200 300 400", "link ActivateMonitor"));
}

TEST_F(Monitor, OpensWhereTheLinkHasItWhenNoPlaceIsKnown) {
    separador4_Click(comm);
    EXPECT_THAT(journal.lines(), ElementsAre("link ShowMonitor 11 22 33 44", "link ActivateMonitor"));
}

TEST_F(Monitor, HiddenMonitorIsBroughtForward) {
    link.monitorLoaded = true;
    separador4_Click(comm);
    EXPECT_THAT(journal.lines(), ElementsAre("link ActivateMonitor"));
}

TEST_F(Monitor, MonitorOnScreenIsNeverClosed) {
    link.monitorLoaded = true;
    link.monitorVisible = true;
    separador4_Click(comm);
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(Monitor, MenuEntryIsGreyWhileTheMonitorIsOnScreen) {
    link.slaveNumber = "0";
    link.monitorLoaded = true;
    link.monitorVisible = true;
    EXPECT_THAT(tick(),
                ElementsAre("TMR_Verifica_monitor off", "separador4 disabled", "TMR_Verifica_monitor on"));
    link.monitorVisible = false;
    EXPECT_THAT(tick(),
                ElementsAre("TMR_Verifica_monitor off", "separador4 enabled", "TMR_Verifica_monitor on"));
}

TEST_F(Monitor, SlaveNumberStandsInPanel3OnceItChanges) {
    link.slaveNumber = " 12 ";
    EXPECT_THAT(tick(), ElementsAre("TMR_Verifica_monitor off", "separador4 enabled", "panel 3 = \"RTU: 12\"",
                                    "TMR_Verifica_monitor on"));
    EXPECT_THAT(tick(),
                ElementsAre("TMR_Verifica_monitor off", "separador4 enabled", "TMR_Verifica_monitor on"));
}

TEST_F(Monitor, SlaveNumbersBeginAt1) {
    link.slaveNumber = "1";
    tick();
    EXPECT_EQ(mainForm.panel(Panel::Unit), "RTU: 1");
}

TEST_F(Monitor, SlaveNumberOfZeroOrNoneLeavesThePanel) {
    mainForm.setPanel(Panel::Unit, "RTU: 3");
    for (const char* number : {"0", "", "none"}) {
        link.slaveNumber = number;
        tick();
        EXPECT_EQ(mainForm.panel(Panel::Unit), "RTU: 3") << number;
    }
}

TEST_F(Monitor, PortSettingsAreTheLinksOwnDialog) {
    MNU_Port_Settings_Click(comm);
    EXPECT_THAT(journal.lines(), ElementsAre("link ShowPortSettings True"));
}

TEST_F(Monitor, BenchButtons) {
    EXPECT_THAT(press(1), ElementsAre("MNU_Open_Click"));
    EXPECT_THAT(press(4), ElementsAre("link SetCommPort 1 9600,n,8,1", "link SetTimings 50 300",
                                      "link AddHoldingBlock 1 5 5 True 1", "link PrepareScan",
                                      "link OpenPort", "TMR_Actualiza_valores on"));
    EXPECT_THAT(press(5), ElementsAre("link ClosePort"));
    EXPECT_THAT(press(8), ElementsAre("Acercade shown"));
    for (const int other : {0, 2, 3, 6, 7, 9, 11, -1})
        EXPECT_THAT(press(other), IsEmpty());
}

TEST_F(Monitor, BenchEndAsksFirst) {
    mainForm.answers = {Msgb_Code_Yes, Msgb_Code_No, Msgb_Code_Cancel};
    EXPECT_THAT(press(10), ElementsAre("Msgb 35 \"Zorvane\": \"Are you sure?\"", "program ends"));
    EXPECT_THAT(press(10), ElementsAre("Msgb 35 \"Zorvane\": \"Are you sure?\""));
    EXPECT_THAT(press(10), ElementsAre("Msgb 35 \"Zorvane\": \"Are you sure?\""));
}

} // namespace
} // namespace zorvane
