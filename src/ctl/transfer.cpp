#include "ctl/transfer.h"

#include "comm/download.h"
#include "comm/download_blocks.h"
#include "comm/session.h"
#include "comm/transfer_records.h"
#include "comm/upload.h"
#include "values/code_page.h"
#include "values/registers.h"

#include <algorithm>

namespace zorvane {

namespace {

const std::string ready = "Ready";

/// The progress form tells how a transfer ended: it waits for an Ok after a failure, and is gone otherwise.
Transfer_Outcome outcomeOf(const Held_Frame& frame, const std::string& panel4) {
    if (frame.Porcentaje().state() != Progress_State::Unloaded) return Transfer_Outcome::Failed;
    return panel4 == ready ? Transfer_Outcome::Finished : Transfer_Outcome::Cancelled;
}

Transfer_Report endTransfer(const Comm_Context& comm, const Held_Frame& frame,
                            std::optional<Failure_Note> failure) {
    Transfer_Report report;
    report.panel4 = frame.panel(Panel::Message);
    report.outcome = failure ? Transfer_Outcome::Failed : outcomeOf(frame, report.panel4);
    report.failure = std::move(failure);
    comm.form.Upload_Active = false;
    comm.form.Download_Active = false;
    MNU_Disconnect_Click(comm);
    report.errors = comm.form.Transfer_Errors;
    report.log = comm.form.Transfer_Log;
    return report;
}

void keepLog(const Comm_Context& comm) {
    comm.link.onExchange([&form = comm.form](const std::string& line1, const std::string& line2) {
        modbus_control_Event10(form, {}, line1, line2);
    });
}

/// An answer that refuses a block is final, so the block was not read; silence is tried again, and lost links
/// end the upload.
std::vector<std::string> refusedBlocks(const std::vector<Info_Rec_Errors>& errors) {
    std::vector<std::string> refusals;
    for (const Info_Rec_Errors& record : errors)
        if (record.Response != "No response")
            refusals.push_back("Registers " + record.Start_Address + "-" + record.End_Address +
                               " were not read: " + record.Response);
    return refusals;
}

bool sharesRegister(const Cell_Rec& cell) {
    const std::string format = upperTrimmed(cell.Format);
    return format == "TIMEMM" || format == "TIMESS" || halfAddress(cell.Address).has_value();
}

/// Whether some request of a download is built from what a register held before: half a register, a time that
/// two cells share, a block of the board family.
bool needsImage(const Declara_Zorvane& document) {
    if (isBoardFamily(document.Controller_Model)) return true;
    for (std::int32_t f = 1; f <= document.Field_Count; ++f) {
        const Cell_Table& cells = document.Fields(f).Cells;
        if (!cells.dimensioned()) continue;
        for (std::int32_t row = 1; row <= cells.rows(); ++row)
            for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
                if (sharesRegister(cells(row, column))) return true;
    }
    return false;
}

std::vector<std::string> failedWrites(const std::vector<std::string>& messages) {
    std::vector<std::string> refusals;
    std::copy_if(messages.begin(), messages.end(), std::back_inserter(refusals),
                 [](const std::string& text) { return text.ends_with(" ...Failed"); });
    return refusals;
}

} // namespace

void readWholePass(const Comm_Context& comm, const std::string& request) {
    modbus_control& link = comm.link;
    selectScan(comm, request);
    if (link.ScanBlockCount() == 0) return;
    comm.form.Cancel_Requested = false;
    link.ResetScan();
    link.PrepareScan();
    const std::int32_t first = link.ScanBlockIndex();
    std::int32_t seen = first;
    link.StartScan();
    bool whole = false;
    while (!whole && !link.CommLost() && !comm.form.Cancel_Requested) {
        comm.frame.wait_until(
            [&] { return link.ScanBlockIndex() != seen || link.CommLost() || comm.form.Cancel_Requested; });
        whole = link.ScanBlockIndex() != seen && link.ScanBlockIndex() == first;
        seen = link.ScanBlockIndex();
    }
    link.EndSession();
}

Transfer_Report runUpload(const Comm_Context& comm, Held_Frame& frame) {
    std::optional<Failure_Note> failure;
    frame.onTimer = [&](Timer_Name timer) {
        if (timer != Timer_Name::TMR_Actualiza_valores || !comm.form.Upload_Active) return;
        failure = failureOf([&] { TMR_Actualiza_valores_Timer(comm); });
        if (failure) comm.form.Upload_Active = false;
    };
    keepLog(comm);
    MNU_Upload_Click(comm);
    frame.wait_until([&] { return !comm.form.Upload_Active; });
    Transfer_Report report = endTransfer(comm, frame, std::move(failure));
    if (report.finished()) {
        report.passes = comm.form.Scan_Passes;
        report.refusals = refusedBlocks(report.errors);
    }
    frame.onTimer = nullptr;
    comm.link.onExchange({});
    return report;
}

Transfer_Report runDownload(const Comm_Context& comm, Held_Frame& frame) {
    // A download after it writes nothing back that was made up. A link that is lost on the way is found by
    // it.
    if (needsImage(comm.document)) readWholePass(comm, transferScan);
    keepLog(comm);
    std::optional<Failure_Note> failure = failureOf([&] { MNU_Download_Click(comm); });
    Transfer_Report report = endTransfer(comm, frame, std::move(failure));
    if (report.finished()) report.refusals = failedWrites(frame.messages());
    comm.link.onExchange({});
    return report;
}

Register_Values scannedRegisters(const Comm_Context& comm) {
    Register_Values registers;
    const auto& blocks = comm.document.Holding_Blocks;
    if (!blocks.dimensioned()) return registers;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        for (std::int64_t address = blocks(i).First_Address; address <= blocks(i).Last_Address; ++address) {
            const auto number = static_cast<std::int32_t>(address);
            registers[number] =
                static_cast<std::uint16_t>(comm.link.RegisterValue(comm.form.Unit_Id, number, false));
        }
    return registers;
}

} // namespace zorvane
