// SPDX-License-Identifier: MIT
#include "comm/transfer/status.h"

#include "comm/transfer/download.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_records.h"
#include "comm/transfer/upload.h"

namespace zorvane {

Transfer_Status transferStatus(const Comm_Context& comm, bool isUpload) {
    return Transfer_Status{transferMethod(isUpload), comm.link.PortParameters(), comm.form.Transfer_Errors,
                           comm.form.Transfer_Log};
}

void Status_Connect(const Comm_Context& comm, std::int16_t /*isUpload*/) {
    comm.mainForm.unloadFrmStatus();
    PRO_Limpia_Errores(comm.form);
    comm.mainForm.setFormEnabled(true);
    goOnline(comm);
}

void Status_Retry(const Comm_Context& comm, std::int16_t isUpload) {
    comm.mainForm.unloadFrmStatus();
    PRO_Limpia_Errores(comm.form);
    if (isUpload != 0)
        MNU_Upload_Click(comm);
    else
        MNU_Download_Click(comm);
}

void Status_CancelProg(const Comm_Context& comm, std::int16_t /*isUpload*/) {
    comm.mainForm.unloadFrmStatus();
    comm.mainForm.setFormEnabled(true);
}

} // namespace zorvane
