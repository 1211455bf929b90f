// SPDX-License-Identifier: MIT
#include "comm/main_form/monitor.h"

namespace zorvane {

namespace {

/// One register on the first port, for trying a line out.
void startBench(const Comm_Context& comm) {
    comm.link.SetCommPort(1, "9600,n,8,1");
    comm.link.SetTimings(50, 300);
    comm.link.AddHoldingBlock(1, 5, 5, true, 1);
    comm.link.PrepareScan();
    comm.link.OpenPort();
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, true);
}

void askEnd(const Comm_Context& comm, const Toolbar_Actions& actions) {
    const int answer =
        comm.mainForm.Msgb_Show("Are you sure?", Msgb_Question + Msgb_YesNoCancel, applicationTitle);
    if (answer == Msgb_Code_Yes) actions.endProgram();
}

} // namespace

void showMonitorWindow(const Comm_Context& comm) {
    Link_Monitor& link = comm.link;
    if (const auto& place = comm.form.Monitor_Place)
        link.ShowMonitor((*place)[0], (*place)[1], (*place)[2], (*place)[3]);
    else
        link.ShowMonitor(link.MonitorLeft(), link.MonitorTop(), link.MonitorWidth(), link.MonitorHeight());
}

void separador4_Click(const Comm_Context& comm) {
    Link_Monitor& link = comm.link;
    if (link.MonitorLoaded()) {
        if (!link.MonitorVisible()) link.ActivateMonitor();
        return;
    }
    showMonitorWindow(comm);
    link.ActivateMonitor();
}

void MNU_Port_Settings_Click(const Comm_Context& comm) { comm.link.ShowPortSettings(true); }

void TMR_Verifica_monitor_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Verifica_monitor, false);
    const bool onScreen = comm.link.MonitorLoaded() && comm.link.MonitorVisible();
    comm.tell(event::Monitor_Looked_At{onScreen});
    comm.tell(event::Unit_Known{comm.link.SlaveNumber()});
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Verifica_monitor, true);
}

void PRO_Toolbar_Boton(const Comm_Context& comm, const Toolbar_Actions& actions, int button) {
    switch (button) {
    case 1:
        return actions.MNU_Open_Click();
    case 4:
        return startBench(comm);
    case 5:
        return comm.link.ClosePort();
    case 8:
        return actions.showAcercade();
    case 10:
        return askEnd(comm, actions);
    default:
        return;
    }
}

} // namespace zorvane
