// SPDX-License-Identifier: MIT
#include "comm/transfer/online.h"

#include "comm/transfer/registers_to_cells.h"
#include "comm/transfer/transfer_bar.h"
#include "values/run_time_failure.h"

namespace zorvane {

namespace {

const std::string noResponse = "The controller does not respond...";

void tellLost(const Comm_Context& comm) {
    PRO_Reintentando(comm);
    if (comm.form.Lost_Shown) return;
    comm.mainForm.setPanel(Panel::Message, noResponse);
    comm.mainForm.setLostComShown(true);
    comm.form.Lost_Shown = true;
}

void tellPresent(const Comm_Context& comm) {
    if (!comm.form.Comm_Active) comm.mainForm.setPanel(Panel::LinkState, "Online");
    if (comm.form.Lost_Shown && comm.mainForm.panel(Panel::Message) == noResponse)
        comm.mainForm.setPanel(Panel::Message, "");
    comm.form.Lost_Shown = false;
    comm.mainForm.setLostComShown(false);
}

void refresh(const Comm_Context& comm) {
    PRO_Refresca_Settings(comm, comm.mainForm.grids().configurationRow());
    comm.form.Comm_Lost_Now = comm.link.CommLost();
    if (comm.form.Comm_Lost_Now)
        tellLost(comm);
    else
        tellPresent(comm);
    tellPolledGaps(comm);
}

/// Shows a light when the count has changed since it was last looked at.
bool showLight(Main_Form& mainForm, Panel panel, const char* text, std::int32_t count, std::int32_t& saved) {
    const bool changed = count != saved;
    saved = count;
    mainForm.setPanel(panel, changed ? text : "");
    return changed;
}

} // namespace

void TMR_Actualiza_online_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, false);
    if (!comm.form.Online) return;
    ignoringFailure([&] { refresh(comm); });
    if (comm.form.Online) comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, true);
}

void TMR_TxRx_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_TxRx, false);
    if (!comm.form.Online) return;
    const bool sent =
        showLight(comm.mainForm, Panel::Tx, "Tx", comm.link.TxCount(), comm.form.Saved_Tx_Count);
    if (sent)
        comm.mainForm.setPanel(Panel::Rx, "");
    else
        showLight(comm.mainForm, Panel::Rx, "Rx", comm.link.RxCount(), comm.form.Saved_Rx_Count);
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_TxRx, true);
}

void TMR_Forza_analogas_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Forza_analogas, false);
}

void PRO_Reintentando(const Comm_Context& comm) {
    comm.mainForm.setFormEnabled(true);
    comm.mainForm.setPanel(Panel::LinkState, "Retrying");
}

void PRO_Perdio_Comunicacion(const Comm_Context& comm) {
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, false);
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, false);
    comm.form.Online = false;
    comm.form.Comm_Active = false;
    comm.mainForm.setPanel(Panel::Message, noResponse);
    comm.link.EndSession();
    comm.mainForm.Porcentaje().unload();
    comm.mainForm.setFormEnabled(true);
    comm.form.Pass_Count = 0;
    comm.mainForm.setPanel(Panel::LinkState, "Offline");
}

} // namespace zorvane
