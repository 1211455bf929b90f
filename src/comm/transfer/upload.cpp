// SPDX-License-Identifier: MIT
#include "comm/transfer/upload.h"

#include "comm/main_form/title.h"
#include "comm/transfer/block_results.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/registers_to_cells.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_bar.h"
#include "comm/transfer/transfer_records.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

namespace zorvane {

namespace {

void startScan(const Comm_Context& comm) {
    Upload_State& upload = comm.form;
    comm.link.ClearCounters();
    comm.link.ResetTransferLog();
    upload.Saved_Transaction = comm.link.TransactionCount();
    upload.Retry_Count = 0;
    comm.link.ResetScan();
    comm.link.PrepareScan();
    upload.Scan_Index = watchedScanBlock(comm.link);
    upload.First_Scan_Index = toInteger(upload.Scan_Index);
    comm.link.StartScan();
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, true);
    upload.Upload_Active = true;
}

void startUpload(const Comm_Context& comm) {
    comm.form.Saved_Transaction = comm.link.TransactionCount();
    comm.form.Cancel_Requested = false;
    comm.form.Upload_Edition = comm.document.Edition;
    comm.form.Last_Upload = {};
    selectScan(comm, transferScan);
    comm.tell(event::Upload_Began{comm.form.Scan_Passes, comm.link.ScanBlockCount()});
    refreshTitle(comm.document, comm.form, comm.mainForm);
    startScan(comm);
}

void noteExchange(const Comm_Context& comm) {
    Main_Form_State& form = comm.form;
    const std::uint8_t count = comm.link.TransactionCount();
    if (count == form.Saved_Transaction) return;
    form.Retry_Count = toInteger(form.Retry_Count + 1.0);
    if (watchedFailure(comm.link)) {
        const Holding_Block_Rec& block = comm.document.Holding_Blocks(form.Scan_Index);
        form.Transfer_Errors.push_back(uploadRecord(block.First_Address, block.Last_Address,
                                                    comm.link.LastResponse(), form.Retry_Count));
    }
    form.Saved_Transaction = count;
}

void closeLink(Link_Scan& link) {
    link.StopScan();
    link.ClosePort();
    link.EndSession();
}

void endUpload(const Comm_Context& comm, Transfer_End how) {
    Main_Form_State& form = comm.form;
    form.Upload_Active = false;
    form.Comm_Active = false;
    form.Pass_Count = 0;
    form.Last_Upload.end = how;
}

void loseUpload(const Comm_Context& comm) {
    closeLink(comm.link);
    endUpload(comm, Transfer_End::Lost);
    comm.tell(event::Transfer_Lost{});
}

/// The image becomes the document's values, which makes the document differ from its file.
void applyImage(const Comm_Context& comm) {
    Grid_View& grids = comm.mainForm.grids();
    for (std::int32_t field = 1; field < grids.configurationRows(); ++field)
        comm.form.Last_Upload.values += PRO_Aplica_Registros(comm, field);
    grids.refillSettings(grids.configurationRow());
    PRO_Titulo_Modificado(comm.document, comm.form, comm.mainForm);
    applySaveRule(comm.document, comm.mainForm);
}

void finishUpload(const Comm_Context& comm) {
    comm.form.Upload_Active = false;
    closeLink(comm.link);
    applyImage(comm);
    comm.form.Last_Upload.blocks = blockResults(comm);
    tellUploadGaps(comm, comm.form.Last_Upload);
    endUpload(comm, Transfer_End::Finished);
    comm.tell(event::Transfer_Finished{.isUpload = true});
    if (!comm.form.Transfer_Errors.empty()) return;
    if (comm.document.Always_Block_Count < 1)
        comm.tell(event::Transfers_Offered{});
    else
        goOnline(comm);
}

enum class Scan_Step { Goes_On, Lost, Done };

/// What a move of the scan to another block means for the upload.
Scan_Step noteBlock(const Comm_Context& comm) {
    Upload_State& upload = comm.form;
    const std::int32_t index = watchedScanBlock(comm.link);
    if (index == upload.Scan_Index) return Scan_Step::Goes_On;
    upload.Retry_Count = 0;
    upload.Scan_Index = index;
    comm.tell(event::Step_Done{});
    if (comm.link.CommLost()) return Scan_Step::Lost;
    if (index != upload.First_Scan_Index) return Scan_Step::Goes_On;
    ++upload.Pass_Count;
    ++upload.Last_Upload.passes;
    return upload.Pass_Count >= upload.Scan_Passes ? Scan_Step::Done : Scan_Step::Goes_On;
}

void tick(const Comm_Context& comm) {
    bool cancelled = false;
    PRO_Verifica_Cancelar(comm, true, cancelled);
    if (cancelled) {
        comm.form.Upload_Active = false;
        comm.form.Last_Upload.end = Transfer_End::Cancelled;
        return;
    }
    noteExchange(comm);
    switch (noteBlock(comm)) {
    case Scan_Step::Lost:
        return loseUpload(comm);
    case Scan_Step::Done:
        return finishUpload(comm);
    case Scan_Step::Goes_On:
        break;
    }
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, true);
}

} // namespace

void MNU_Upload_Click(const Comm_Context& comm) {
    PRO_Limpia_Errores(comm.form);
    comm.form.Transfer_Was_Upload = true;
    if (!comm.form.Comm_Active) ignoringFailure([&] { startUpload(comm); });
    comm.form.Comm_Active = true;
}

void TMR_Actualiza_valores_Timer(const Comm_Context& comm) {
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, false);
    if (comm.document.Edition != comm.form.Upload_Edition) {
        comm.form.Last_Upload.end = Transfer_End::Dropped;
        return dropTransfer(comm);
    }
    endingOnFailure(comm.form.Last_Upload.end, [&] { tick(comm); });
}

} // namespace zorvane
