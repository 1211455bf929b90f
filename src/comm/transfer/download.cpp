// SPDX-License-Identifier: MIT
#include "comm/transfer/download.h"

#include "comm/main_form/progress.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/download_step.h"
#include "comm/transfer/requests/ascii_block.h"
#include "comm/transfer/requests/download_request.h"
#include "comm/transfer/requests/download_walk.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_bar.h"
#include "comm/transfer/transfer_records.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

constexpr std::int32_t farewellMs = 1000;
const std::string downloading = "Transferring data to controller...";

/// Rows to walk: those of each modifiable column.
std::int32_t cellCount(const Comm_Context& comm) {
    double total = 0;
    const std::int32_t rows = comm.mainForm.grids().configurationRows();
    for (std::int32_t f = 1; f < rows; ++f) {
        const Field_Rec& field = comm.document.Fields(f);
        const Cell_Table& cells = field.Cells;
        for (std::int32_t column = 1; column <= field.Columns; ++column)
            if (cells(0, column).Modifiable) total += field.Rows;
    }
    return toLong(total);
}

void prepare(const Comm_Context& comm) {
    comm.link.ClearWriteFailed();
    PRO_Limpia_Errores(comm.form);
    comm.form.Cancel_Requested = false;
    selectScan(comm, transferScan);
    comm.link.PrepareScan();
}

void showDownloading(const Comm_Context& comm) {
    Main_Form& mainForm = comm.mainForm;
    mainForm.setPanel(Panel::Message, downloading);
    mainForm.setPanel(Panel::Tx, "");
    mainForm.setPanel(Panel::Rx, "");
    const std::int32_t total = cellCount(comm);
    comm.form.Last_Download = {};
    comm.form.Last_Download.values = total;
    mainForm.setFormEnabled(false);
    mainForm.setPanel(Panel::LinkState, "Download");
    Progress_Form& progress = mainForm.Porcentaje();
    progress.setRange(total);
    progress.setLabel(downloading);
    progress.show();
}

/// The document is gone. The link may serve the next one by now.
void drop(const Comm_Context& comm) {
    comm.form.Download_Active = false;
    if (!comm.form.Online && !comm.form.Comm_Active) dropTransfer(comm);
}

void finish(const Comm_Context& comm, const Document_Mark& document) {
    comm.form.Download_Active = false;
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.mainForm.wait_ms(farewellMs);
    if (!document.holds()) return drop(comm);
    comm.mainForm.Porcentaje().unload();
    comm.mainForm.setPanel(Panel::Message, "Ready");
    tellDownloadEnd(comm, Download_End::Finished);
    comm.mainForm.setFormEnabled(true);
    if (!comm.form.Transfer_Errors.empty() || comm.document.Always_Block_Count < 1) {
        setTransferMenus(comm.mainForm, true);
        return;
    }
    comm.link.StartScan();
    selectScan(comm, onlineScan);
    comm.link.PrepareScan();
    enterOnline(comm);
}

void lose(const Comm_Context& comm) {
    comm.form.Write_Busy = false;
    comm.form.Download_Active = false;
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.mainForm.Porcentaje().setLabel("Error. The controller does not respond.");
    comm.mainForm.Porcentaje().Deshabilita_Cancelar();
    showNoResponse(comm.mainForm);
    tellDownloadEnd(comm, Download_End::Lost);
}

void stopCancelled(const Comm_Context& comm) {
    comm.form.Download_Active = false;
    comm.mainForm.setFormEnabled(true);
    tellDownloadEnd(comm, Download_End::Cancelled);
}

enum class Walk_End { Finished, Lost, Cancelled, Document_Gone };

Walk_End walk(const Comm_Context& comm, const Document_Mark& document) {
    Download_Step step(comm, document);
    const std::int32_t rows = comm.mainForm.grids().configurationRows();
    for (std::int32_t f = 1; f < rows; ++f) {
        if (comm.link.CommLost()) return Walk_End::Lost;
        const bool whole =
            visitSentCells(comm.document, f, [&step](const Cell_Place& place) { return step.run(place); });
        if (!whole) return document.holds() ? Walk_End::Cancelled : Walk_End::Document_Gone;
    }
    return Walk_End::Finished;
}

} // namespace

void MNU_Download_Click(const Comm_Context& comm) {
    tellUnreadBeforeDownload(comm);
    comm.form.Transfer_Was_Upload = false;
    prepare(comm);
    showDownloading(comm);
    comm.link.EndSession();
    comm.link.ClearCounters();
    comm.form.Download_Active = true;
    const Document_Mark document(comm.document);
    switch (walk(comm, document)) {
    case Walk_End::Finished:
        return finish(comm, document);
    case Walk_End::Lost:
        return lose(comm);
    case Walk_End::Cancelled:
        return stopCancelled(comm);
    case Walk_End::Document_Gone:
        return drop(comm);
    }
}

} // namespace zorvane
