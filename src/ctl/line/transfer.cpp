// SPDX-License-Identifier: MIT
#include "ctl/line/transfer.h"

#include "comm/transfer/block_results.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/download.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_records.h"
#include "comm/transfer/upload.h"
#include "ctl/document/own_values.h"
#include "ctl/line/first_reading.h"

#include <algorithm>

namespace zorvane::ctl {

namespace {

Transfer_Outcome outcomeOf(Transfer_End end) {
    if (end == Transfer_End::Finished) return Transfer_Outcome::Finished;
    return end == Transfer_End::Cancelled ? Transfer_Outcome::Cancelled : Transfer_Outcome::Failed;
}

Transfer_Report endTransfer(const Comm_Context& comm, const Held_Form& mainForm, Transfer_End end,
                            std::optional<Failure_Note> failure) {
    Transfer_Report report;
    report.outcome = outcomeOf(end);
    report.lost = end == Transfer_End::Lost;
    report.failure = std::move(failure);
    comm.form.Upload_Active = false;
    comm.form.Download_Active = false;
    MNU_Disconnect_Click(comm);
    report.panel4 = mainForm.lastMessage();
    report.panel4_lines = mainForm.messages();
    report.blocks = blockResults(comm);
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
std::vector<Failed_Read> failedReads(const std::vector<Info_Rec_Errors>& errors) {
    std::vector<Failed_Read> failed;
    for (const Info_Rec_Errors& record : errors)
        if (record.Response != "No response")
            failed.push_back({"Registers " + record.Start_Address + "-" + record.End_Address +
                                  " were not read: " + record.Response,
                              endOf(record.Response)});
    return failed;
}

template <class Failed> std::vector<std::string> refusalsOf(const std::vector<Failed>& all) {
    std::vector<std::string> texts;
    for (const Failed& each : all)
        if (each.end == Request_End::Refused) texts.push_back(each.text);
    return texts;
}

void noteSignal(Transfer_Report& report, const Stop_Wish& stop) {
    if (stop.asked()) report.signal = stop.signal();
}

Grid_Selection selectionOf(const Grid_View& grids) {
    return {grids.configurationRow(), grids.settingsRow(), grids.settingsCol()};
}

void cancelBefore(const Comm_Context& comm) {
    bool cancelled = false;
    comm.form.Cancel_Requested = true;
    PRO_Verifica_Cancelar(comm, false, cancelled);
    comm.form.Last_Download.end = Transfer_End::Cancelled;
}

void refuseToWrite(const Comm_Context& comm, const First_Reading& reading) {
    comm.form.Transfer_Errors = reading.errors;
    comm.form.Last_Download.end = reading.lost ? Transfer_End::Lost : Transfer_End::Failed;
    if (reading.lost) comm.tell(event::Controller_Silent{});
}

std::optional<Failure_Note> writeAll(const Comm_Context& comm) {
    keepLog(comm);
    return failureOf([&] { MNU_Download_Click(comm); });
}

/// The plan was made on no registers at all, which changes values, but neither writes nor their order.
Download_Writes writesOf(Guarded_Link& link, const Download_Plan& plan) {
    Download_Writes writes{link.writes(), {}};
    const auto sent = static_cast<std::ptrdiff_t>(std::min(writes.sent.size(), plan.writes.size()));
    writes.notSent.assign(plan.writes.begin() + sent, plan.writes.end());
    return writes;
}

} // namespace

std::vector<Failed_Write> failedWrites(const Download_Result& result) {
    std::vector<Failed_Write> writes;
    for (const Failed_Value& failed : result.failed)
        writes.push_back({statusLine({failed.value, failed.address, Write_Progress::Failed}), failed.address,
                          failed.value, endOf(failed.answer), failed.answer});
    return writes;
}

std::size_t Download_Writes::count(Write_State state) const {
    return static_cast<std::size_t>(
        std::count_if(sent.begin(), sent.end(), [&](const Sent_Write& each) { return each.state == state; }));
}

bool stopTransfer(const Comm_Context& comm, bool atOnce) {
    comm.link.PauseScan();
    const bool waits = !atOnce && comm.form.Download_Active && comm.link.WriteBusy();
    if (!waits) comm.form.Cancel_Requested = true;
    return waits;
}

void readWholePass(const Comm_Context& comm, const std::string& request) {
    Reading_Link& link = comm.link;
    selectScan(comm, request);
    if (link.ScanBlockCount() == 0) return;
    link.ResetScan();
    link.PrepareScan();
    const std::int32_t first = watchedScanBlock(link);
    std::int32_t seen = first;
    link.StartScan();
    bool whole = false;
    while (!whole && !link.CommLost() && !comm.form.Cancel_Requested) {
        comm.mainForm.wait_until(
            [&] { return watchedScanBlock(link) != seen || link.CommLost() || comm.form.Cancel_Requested; });
        whole = link.ScanBlockIndex() != seen && link.ScanBlockIndex() == first;
        seen = link.ScanBlockIndex();
    }
    link.EndSession();
}

Transfer_Report runUpload(const Comm_Context& asked, Held_Form& mainForm, const Stop_Wish& stop) {
    Guarded_Link link(asked.link, asked.form, stop);
    const Comm_Context comm{asked.document, asked.form, link, asked.mainForm, asked.watcher};
    const Own_Values own(comm.document);
    std::optional<Failure_Note> failure;
    mainForm.onTimer = [&](Timer_Name timer) {
        if (timer != Timer_Name::TMR_Actualiza_valores || !comm.form.Upload_Active) return;
        failure = failureOf([&] { TMR_Actualiza_valores_Timer(comm); });
        if (failure) comm.form.Upload_Active = false;
    };
    keepLog(comm);
    MNU_Upload_Click(comm);
    if (stop.asked()) comm.form.Cancel_Requested = true; // the command has cleared the wish
    mainForm.wait_until([&] { return !comm.form.Upload_Active; });
    const Upload_Result& result = comm.form.Last_Upload;
    Transfer_Report report = endTransfer(comm, mainForm, result.end, std::move(failure));
    if (report.finished()) {
        report.passes = result.passes;
        report.failedReads = failedReads(report.errors);
        report.refusals = refusalsOf(report.failedReads);
        own.putBackUnread(comm);
    } else {
        noteSignal(report, stop);
    }
    mainForm.onTimer = nullptr;
    return report;
}

Transfer_Report runDownload(const Comm_Context& asked, Held_Form& mainForm, const Stop_Wish& stop) {
    Guarded_Link link(asked.link, asked.form, stop);
    const Comm_Context comm{asked.document, asked.form, link, asked.mainForm, asked.watcher};
    const Download_Plan plan = planDownload(comm.document, {}, selectionOf(mainForm.grids()));
    mainForm.Porcentaje().setLabel("Transferring data to controller...");
    mainForm.Porcentaje().show();
    const bool hopeless = plan.failure && plan.writes.empty(); // the first write can't even be built
    const First_Reading reading = hopeless ? First_Reading() : readBeforeWriting(comm, plan);
    std::optional<Failure_Note> failure;
    if (stop.asked())
        cancelBefore(comm);
    else if (hopeless)
        failure = plan.failure;
    else if (reading.mayWrite())
        failure = writeAll(comm);
    else
        refuseToWrite(comm, reading);
    const Download_Result& result = comm.form.Last_Download;
    Transfer_Report report = endTransfer(comm, mainForm, result.end, std::move(failure));
    report.failedWrites = failedWrites(result);
    report.refusals = refusalsOf(report.failedWrites);
    if (report.outcome == Transfer_Outcome::Failed) report.obstacles = reading.obstacles;
    report.writes = writesOf(link, plan);
    noteSignal(report, stop);
    return report;
}

compare::Register_Values scannedRegisters(const Comm_Context& comm) {
    compare::Register_Values registers;
    const auto& blocks = comm.document.Holding_Blocks;
    if (!blocks.dimensioned()) return registers;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        for (std::int64_t address = blocks(i).First_Address; address <= blocks(i).Last_Address; ++address) {
            const auto number = static_cast<std::int32_t>(address);
            if (comm.link.readingOf(comm.form.Unit_Id, number).age == Reading_Age::Never) continue;
            registers[number] =
                static_cast<std::uint16_t>(comm.link.RegisterValue(comm.form.Unit_Id, number, false));
        }
    return registers;
}

} // namespace zorvane::ctl
