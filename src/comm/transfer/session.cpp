// SPDX-License-Identifier: MIT
#include "comm/transfer/session.h"

#include "comm/main_form/bar_topics.h"
#include "comm/transfer/transfer_bar.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <utility>

namespace zorvane {

void MNU_Disconnect_Click(const Comm_Context& comm) {
    comm.form.Online = false;
    comm.tell(event::Session_Ending{});
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, false);
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_TxRx, false);
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.tell(event::Port_Closed{});
    comm.link.EndSession();
    comm.tell(event::Transfers_Offered{});
}

void PRO_Fin_Sesion(const Comm_Context& comm) {
    if (!comm.form.Online) return;
    comm.form.Online = false;
    comm.tell(event::Session_Ending{});
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, false);
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.tell(event::Port_Closed{.documentClosed = true});
    comm.link.EndSession();
}

namespace {

/// The registers of the texts of one field.
void keepTextsTogether(const Cell_Table& cells, Link_Scan& link) {
    for (std::int32_t row = 1; cells.dimensioned() && row <= cells.rows(); ++row) {
        for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column) {
            const Cell_Rec& cell = cells(row, column);
            if (!cell.Is_Ascii_Range || !isNumeric(cell.Address) || !isNumeric(cell.Address_End)) continue;
            ignoringFailure([&] { link.KeepTogether(longValue(cell.Address), longValue(cell.Address_End)); });
        }
    }
}

} // namespace

void PRO_Registra_Bloques(const Comm_Context& comm) {
    const auto& blocks = comm.document.Holding_Blocks;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        comm.link.AddScanBlock(blocks(i).First_Address, blocks(i).Last_Address, false, blocks(i).Request,
                               comm.form.Unit_Id);
    for (std::int32_t field = 1; field <= comm.document.Field_Count; ++field)
        keepTextsTogether(std::as_const(comm.document).Fields(field).Cells, comm.link);
}

void selectScan(const Comm_Context& comm, const std::string& word) {
    comm.link.SetScanMode(word);
    comm.form.Current_Request = comm.link.ScanMode();
}

void enterOnline(const Comm_Context& comm) {
    comm.form.Last_Polling = {};
    forgetPolledGaps(comm);
    comm.mainForm.messageBar().withdraw(bar_topic::unmarkedChange); // nothing is put back while online
    comm.form.Online = true;
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_online, true);
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_TxRx, true);
    comm.tell(event::Polling_Began{});
}

void goOnline(const Comm_Context& comm) {
    selectScan(comm, onlineScan);
    comm.link.PrepareScan();
    comm.link.StartScan();
    enterOnline(comm);
}

} // namespace zorvane
