// SPDX-License-Identifier: MIT
#include "comm/transfer/cancel.h"

#include "comm/transfer/session.h"

namespace zorvane {

void PRO_Verifica_Cancelar(const Comm_Context& comm, bool isUpload, bool& cancelled) {
    cancelled = false;
    if (!comm.form.Cancel_Requested) return;
    comm.form.Comm_Active = false;
    MNU_Disconnect_Click(comm);
    comm.tell(event::Transfer_Cancelled{.isUpload = isUpload});
    cancelled = true;
}

void dropTransfer(const Comm_Context& comm) {
    comm.form.Upload_Active = false;
    comm.form.Comm_Active = false;
    comm.form.Pass_Count = 0;
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.link.EndSession();
    comm.tell(event::Transfer_Dropped{});
}

void BOT_Cancel_Click(const Comm_Context& comm) {
    comm.link.PauseScan();
    const int answer = comm.mainForm.Msgb_Show("The transfer is not complete. Do you want to abort anyway?",
                                               Msgb_Question + Msgb_YesNo, applicationTitle);
    if (answer == Msgb_Code_Yes) comm.form.Cancel_Requested = true;
    comm.link.ResumeScan();
}

} // namespace zorvane
