// SPDX-License-Identifier: MIT
#include "comm/transfer/online.h"

#include "comm/transfer/registers_to_cells.h"
#include "comm/transfer/transfer_bar.h"
#include "values/run_time_failure.h"

#include <utility>

namespace zorvane {

namespace {

void tellLost(const Comm_Context& comm) {
    comm.tell(event::Polling_Lost{.newly = !comm.form.Lost_Shown});
    comm.form.Lost_Shown = true;
}

void tellPresent(const Comm_Context& comm) {
    comm.tell(event::Polling_Answered{comm.form.Lost_Shown, comm.form.Comm_Active});
    comm.form.Lost_Shown = false;
}

void refresh(const Comm_Context& comm) {
    PRO_Refresca_Settings(comm, comm.mainForm.grids().configurationRow());
    comm.form.Comm_Lost_Now = comm.link.CommLost();
    if (comm.form.Comm_Lost_Now)
        tellLost(comm);
    else
        tellPresent(comm);
    tellPolledGaps(comm);
    comm.form.Last_Polling.lost = comm.form.Comm_Lost_Now;
    comm.form.Last_Polling.gaps = comm.form.Polled_Gaps;
}

/// Whether the count has changed since it was last looked at.
bool hasChanged(std::int32_t count, std::int32_t& saved) { return std::exchange(saved, count) != count; }

} // namespace

void TMR_Actualiza_online_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, false);
    if (!comm.form.Online) return;
    ++comm.form.Last_Polling.refreshes;
    ignoringFailure([&] { refresh(comm); });
    if (comm.form.Online) comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, true);
}

void TMR_TxRx_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_TxRx, false);
    if (!comm.form.Online) return;
    const bool sent = hasChanged(comm.link.TxCount(), comm.form.Saved_Tx_Count);
    const bool received = !sent && hasChanged(comm.link.RxCount(), comm.form.Saved_Rx_Count);
    comm.tell(event::Traffic_Seen{sent, received});
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_TxRx, true);
}

void TMR_Forza_analogas_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Forza_analogas, false);
}

void PRO_Reintentando(const Comm_Context& comm) { comm.tell(event::Link_Retrying{}); }

void PRO_Perdio_Comunicacion(const Comm_Context& comm) {
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, false);
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, false);
    comm.form.Online = false;
    comm.form.Comm_Active = false;
    comm.tell(event::Link_Silent{});
    comm.link.EndSession();
    comm.form.Pass_Count = 0;
    comm.tell(event::Link_Given_Up{});
}

} // namespace zorvane
