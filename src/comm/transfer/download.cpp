// SPDX-License-Identifier: MIT
#include "comm/transfer/download.h"

#include "comm/transfer/cancel.h"
#include "comm/transfer/download_step.h"
#include "comm/transfer/requests/ascii_block.h"
#include "comm/transfer/requests/download_request.h"
#include "comm/transfer/requests/download_walk.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_bar.h"
#include "comm/transfer/transfer_records.h"
#include "values/numbers.h"

#include <optional>

namespace zorvane {

namespace {

constexpr std::int32_t farewellMs = 1000;

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

void begin(const Comm_Context& comm) {
    comm.tell(event::Download_Asked{});
    comm.form.Last_Download.values = cellCount(comm);
    comm.tell(event::Download_Began{comm.form.Last_Download.values});
}

/// The download is over.
const Download_Result& endDownload(const Comm_Context& comm, Transfer_End how) {
    comm.form.Download_Active = false;
    Download_Result& result = comm.form.Last_Download;
    result.end = how;
    result.controllerSeen = comm.link.ControllerSeen();
    return result;
}

/// The document is gone. The link may serve the next one by now.
void drop(const Comm_Context& comm) {
    endDownload(comm, Transfer_End::Dropped);
    if (!comm.form.Online && !comm.form.Comm_Active) dropTransfer(comm);
}

void finish(const Comm_Context& comm, const Document_Mark& document) {
    comm.form.Download_Active = false;
    comm.link.StopScan();
    comm.link.ClosePort();
    comm.mainForm.wait_ms(farewellMs);
    if (!document.holds()) return drop(comm);
    const Download_Result& result = endDownload(comm, Transfer_End::Finished);
    comm.tell(event::Transfer_Finished{.isUpload = false});
    tellDownloadEnd(comm, result);
    if (!comm.form.Transfer_Errors.empty() || comm.document.Always_Block_Count < 1)
        return comm.tell(event::Transfers_Offered{});
    comm.link.StartScan();
    selectScan(comm, onlineScan);
    comm.link.PrepareScan();
    enterOnline(comm);
}

void loseDownload(const Comm_Context& comm) {
    comm.form.Write_Busy = false;
    comm.form.Download_Active = false;
    comm.link.StopScan();
    comm.link.ClosePort();
    const Download_Result& result = endDownload(comm, Transfer_End::Lost);
    comm.tell(event::Transfer_Lost{});
    tellDownloadEnd(comm, result);
}

void stopCancelled(const Comm_Context& comm) {
    const Download_Result& result = endDownload(comm, Transfer_End::Cancelled);
    comm.tell(event::Download_Left{});
    tellDownloadEnd(comm, result);
}

enum class Walk_End { Finished, Lost, Cancelled, Document_Gone };

/// Whether the port can be opened at all shows at the end of an opening that goes on; the walk begins with
/// that known. How it ended before that, or nothing.
std::optional<Walk_End> awaitPort(const Comm_Context& comm, const Document_Mark& document) {
    if (!comm.link.PortOpening()) return std::nullopt;
    comm.mainForm.wait_until(
        [&] { return !document.holds() || !comm.link.PortOpening() || comm.form.Cancel_Requested; });
    if (!document.holds()) return Walk_End::Document_Gone;
    bool cancelled = false;
    PRO_Verifica_Cancelar(comm, false, cancelled);
    return cancelled ? std::optional(Walk_End::Cancelled) : std::nullopt;
}

Walk_End walk(const Comm_Context& comm, const Document_Mark& document) {
    if (const auto ended = awaitPort(comm, document)) return *ended;
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

void download(const Comm_Context& comm) {
    prepare(comm);
    begin(comm);
    comm.link.EndSession();
    comm.link.ClearCounters();
    comm.form.Download_Active = true;
    const Document_Mark document(comm.document);
    switch (walk(comm, document)) {
    case Walk_End::Finished:
        return finish(comm, document);
    case Walk_End::Lost:
        return loseDownload(comm);
    case Walk_End::Cancelled:
        return stopCancelled(comm);
    case Walk_End::Document_Gone:
        return drop(comm);
    }
}

} // namespace

void MNU_Download_Click(const Comm_Context& comm) {
    tellUnreadBeforeDownload(comm);
    comm.form.Transfer_Was_Upload = false;
    comm.form.Last_Download = {};
    endingOnFailure(comm.form.Last_Download.end, [&] { download(comm); });
}

} // namespace zorvane
