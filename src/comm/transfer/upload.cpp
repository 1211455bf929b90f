// SPDX-License-Identifier: MIT
#include "comm/transfer/upload.h"

#include "comm/main_form/progress.h"
#include "comm/main_form/title.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/registers_to_cells.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_bar.h"
#include "comm/transfer/transfer_records.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

namespace zorvane {

namespace {

/// 32-bit arithmetic of the progress bar: beyond it, failure 6.
std::int32_t progressRange(std::int32_t passes, std::int32_t blocks) {
    return toLong(static_cast<double>(passes) * blocks);
}

void showUploading(const Comm_Context& comm) {
    Main_Form& mainForm = comm.mainForm;
    mainForm.setPanel(Panel::Tx, "");
    mainForm.setPanel(Panel::Rx, "");
    mainForm.setFormEnabled(false);
    mainForm.setPanel(Panel::LinkState, "Upload");
    mainForm.setPanel(Panel::Message, "Uploading... Wait a moment please");
    Progress_Form& progress = mainForm.Porcentaje();
    progress.setLabel("Uploading data from the controller...");
    progress.setRange(progressRange(comm.form.Scan_Passes, comm.link.ScanBlockCount()));
    progress.show();
    refreshTitle(comm.document, comm.form, mainForm);
}

void startScan(const Comm_Context& comm) {
    Main_Form_State& form = comm.form;
    comm.link.ClearCounters();
    comm.link.ResetTransferLog();
    form.Saved_Transaction = comm.link.TransactionCount();
    form.Retry_Count = 0;
    comm.link.ResetScan();
    comm.link.PrepareScan();
    form.Scan_Index = comm.link.ScanBlockIndex();
    form.First_Scan_Index = toInteger(form.Scan_Index);
    comm.link.StartScan();
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, true);
    form.Upload_Active = true;
}

void startUpload(const Comm_Context& comm) {
    comm.form.Saved_Transaction = comm.link.TransactionCount();
    comm.form.Cancel_Requested = false;
    comm.form.Upload_Edition = comm.document.Edition;
    selectScan(comm, transferScan);
    showUploading(comm);
    startScan(comm);
}

void noteExchange(const Comm_Context& comm) {
    Main_Form_State& form = comm.form;
    const std::uint8_t count = comm.link.TransactionCount();
    if (count == form.Saved_Transaction) return;
    form.Retry_Count = toInteger(form.Retry_Count + 1.0);
    if (comm.link.LastRequestFailed()) {
        const Holding_Block_Rec& block = comm.document.Holding_Blocks(form.Scan_Index);
        form.Transfer_Errors.push_back(uploadRecord(block.First_Address, block.Last_Address,
                                                    comm.link.LastResponse(), form.Retry_Count));
    }
    form.Saved_Transaction = count;
}

void closeLink(modbus_control& link) {
    link.StopScan();
    link.ClosePort();
    link.EndSession();
}

void fail(const Comm_Context& comm) {
    closeLink(comm.link);
    comm.form.Comm_Active = false;
    comm.form.Pass_Count = 0;
    comm.mainForm.Porcentaje().setLabel("Error. The controller does not respond.");
    comm.form.Upload_Active = false;
    comm.mainForm.Porcentaje().Deshabilita_Cancelar();
    showNoResponse(comm.mainForm);
}

/// The image becomes the document's values, which makes the document differ from its file.
void applyImage(const Comm_Context& comm) {
    Grid_View& grids = comm.mainForm.grids();
    for (std::int32_t field = 1; field < grids.configurationRows(); ++field)
        PRO_Aplica_Registros(comm, field);
    grids.refillSettings(grids.configurationRow());
    PRO_Titulo_Modificado(comm.document, comm.form, comm.mainForm);
    applySaveRule(comm.document, comm.mainForm);
}

void finish(const Comm_Context& comm) {
    comm.form.Upload_Active = false;
    closeLink(comm.link);
    applyImage(comm);
    tellUploadGaps(comm);
    comm.form.Comm_Active = false;
    comm.mainForm.setPanel(Panel::Message, "Ready");
    comm.mainForm.Porcentaje().unload();
    comm.form.Pass_Count = 0;
    comm.mainForm.setFormEnabled(true);
    if (!comm.form.Transfer_Errors.empty()) return;
    if (comm.document.Always_Block_Count < 1)
        setTransferMenus(comm.mainForm, true);
    else
        goOnline(comm);
}

enum class Scan_Step { Goes_On, Lost, Done };

/// What a move of the scan to another block means for the upload.
Scan_Step noteBlock(const Comm_Context& comm) {
    Main_Form_State& form = comm.form;
    const std::int32_t index = comm.link.ScanBlockIndex();
    if (index == form.Scan_Index) return Scan_Step::Goes_On;
    form.Retry_Count = 0;
    form.Scan_Index = index;
    advanceProgress(comm.mainForm.Porcentaje());
    if (comm.link.CommLost()) return Scan_Step::Lost;
    if (index != form.First_Scan_Index) return Scan_Step::Goes_On;
    ++form.Pass_Count;
    return form.Pass_Count >= form.Scan_Passes ? Scan_Step::Done : Scan_Step::Goes_On;
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
    if (comm.document.Edition != comm.form.Upload_Edition) return dropTransfer(comm);
    bool cancelled = false;
    PRO_Verifica_Cancelar(comm, true, cancelled);
    if (cancelled) {
        comm.form.Upload_Active = false;
        return;
    }
    noteExchange(comm);
    switch (noteBlock(comm)) {
    case Scan_Step::Lost:
        return fail(comm);
    case Scan_Step::Done:
        return finish(comm);
    case Scan_Step::Goes_On:
        break;
    }
    comm.mainForm.setTimerEnabled(Timer_Name::TMR_Actualiza_valores, true);
}

} // namespace zorvane
