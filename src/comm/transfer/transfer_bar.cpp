// SPDX-License-Identifier: MIT
#include "comm/transfer/transfer_bar.h"

#include "cells/cell_names.h"
#include "comm/main_form/bar_topics.h"
#include "comm/modbus_control/scan/register_ranges.h"
#include "comm/transfer/block_results.h"
#include "comm/transfer/requests/needed_registers.h"
#include "comm/transfer/session.h"
#include "comm/transfer/upload.h"
#include "values/numbers.h"
#include "values/registers.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <optional>

namespace zorvane {

namespace {

constexpr std::size_t mostRanges = 10;

void tell(const Comm_Context& comm, const std::string& topic, Bar_Kind kind, std::string text,
          std::vector<Bar_Button> buttons = {}) {
    comm.mainForm.messageBar().tell({topic, kind, std::move(text), std::move(buttons), true});
}

/// The report of the last transfer.
Bar_Button logButton(const Comm_Context& comm) {
    return {"Log...", [comm] { comm.mainForm.showFrmStatus(comm.form.Transfer_Was_Upload); }};
}

// Before a download.

Bar_Button uploadButton(const Comm_Context& comm) {
    return {"Upload first", [comm] {
                const Comm_Context own = comm; // the line may go meanwhile
                const Main_Form_State& form = own.form;
                if (!form.Online && !form.Download_Active && !form.Comm_Active) MNU_Upload_Click(own);
            }};
}

Register_Set ofAge(const Comm_Context& comm, const Register_Set& registers, Reading_Age age) {
    Register_Set found;
    for (const std::int32_t address : registers)
        if (comm.link.readingOf(comm.form.Unit_Id, address).age == age) found.insert(address);
    return found;
}

std::string effectText(const Unknown_Effect& effect, const std::string& what) {
    std::string text;
    if (!effect.whole.empty())
        text += " Registers " + registersText(effect.whole, mostRanges) + " of the controller become " +
                what + ".";
    if (!effect.part.empty())
        text += " In " + registersText(effect.part, mostRanges) +
                " the half, or the part of a time, that no cell sets becomes " + what + ".";
    return text;
}

} // namespace

namespace {

void tellUnread(const Comm_Context& comm) {
    const Grid_View& grids = comm.mainForm.grids();
    const Grid_Selection selection{grids.configurationRow(), grids.settingsRow(), grids.settingsCol()};
    const Register_Set needed = neededRegisters(comm.document, selection);
    const Unknown_Effect never =
        effectOfUnknown(comm.document, selection, ofAge(comm, needed, Reading_Age::Never));
    const Unknown_Effect older =
        effectOfUnknown(comm.document, selection, ofAge(comm, needed, Reading_Age::EarlierOpening));
    if (never.empty() && older.empty())
        return comm.mainForm.messageBar().withdraw(bar_topic::unreadBeforeDownload);
    const std::string text =
        "This download is built from registers that were not read since the port was opened." +
        effectText(never, "0") + effectText(older, "what was read at an earlier opening of the port");
    tell(comm, bar_topic::unreadBeforeDownload, never.empty() ? Bar_Kind::Note : Bar_Kind::Warning, text,
         {uploadButton(comm)});
}

} // namespace

void tellUnreadBeforeDownload(const Comm_Context& comm) {
    ignoringFailure([&] { tellUnread(comm); });
}

// After a download.

namespace {

constexpr std::size_t mostMissedNamed = 6;

std::string beginning(Transfer_End end, std::int32_t values) {
    const std::string of = " of " + numberText(values) + (values == 1 ? " value" : " values");
    switch (end) {
    case Transfer_End::Cancelled:
        return "Cancelled download" + of + ": ";
    case Transfer_End::Lost:
        return "Download" + of + ", given up as the controller does not respond: ";
    default:
        break;
    }
    return "Download" + of + ": ";
}

std::string countsText(const Download_Result& result) {
    std::string text = numberText(result.taken) + " taken, " + numberText(result.refused) + " refused, " +
                       numberText(result.unanswered) + " not answered";
    const auto add = [&text](std::int32_t count, const char* what) {
        if (count > 0) text += ", " + numberText(count) + what;
    };
    add(result.uncertain, " not certain");
    add(result.unsendable, " could not be sent");
    add(result.withoutWrite, " without a write of their own");
    add(result.notReached(), " not reached");
    return text + ".";
}

std::string missedText(const Download_Result& result) {
    if (result.missed.empty()) return {};
    std::string text = " Not taken for certain: ";
    for (std::size_t i = 0; i < result.missed.size() && i < mostMissedNamed; ++i)
        text += (i == 0 ? "@" : ", @") + result.missed[i].address;
    if (result.missed.size() > mostMissedNamed)
        text += " and " + std::to_string(result.missed.size() - mostMissedNamed) + " more";
    return text + ".";
}

const std::string nobodySeen =
    " No answer of a controller was seen on this opening of the port: nothing was read, and what came back "
    "repeats the requests, as an adapter that echoes does. Nothing proves that the values arrived; an upload "
    "tells.";

} // namespace

void tellDownloadEnd(const Comm_Context& comm, const Download_Result& result) {
    if (result.values == 0) return;
    const bool proven = result.taken == 0 || result.controllerSeen;
    std::string text = beginning(result.end, result.values) + countsText(result) + missedText(result);
    if (result.finished()) text += " \"Ready\" stands there for all of it.";
    if (!proven) text += nobodySeen;
    const bool whole = result.missed.empty() && result.notReached() == 0 && result.finished();
    tell(comm, bar_topic::downloadEnd, whole && proven ? Bar_Kind::Note : Bar_Kind::Warning, text,
         {logButton(comm)});
}

// Blocks that couldn't be read.

namespace {

std::string rangeText(const Block_Result& block) {
    return numberText(block.first) + "-" + numberText(block.last);
}

std::string reasonText(const std::string& fault) { return fault.empty() ? "no answer" : fault; }

struct Cell_Registers {
    std::int32_t first = 0;
    std::int32_t last = -1;
};

/// The registers that a cell shows; none for one without.
Cell_Registers registersOf(const Cell_Rec& cell) {
    if (isNumeric(cell.Address)) {
        const std::int32_t first = longValue(cell.Address);
        return {first, cell.Is_Ascii_Range ? longValue(cell.Address_End) : first};
    }
    const auto half = halfAddress(cell.Address);
    if (!half) return {};
    const std::int32_t address = longValue(half->number);
    return {address, address};
}

/// What a page shows in place of what couldn't be read.
struct Page_Gaps {
    bool older = false;
    bool zero = false;
};

void addGaps(const Comm_Context& comm, const Cell_Rec& cell, Page_Gaps& gaps) {
    const Cell_Registers registers = registersOf(cell);
    const std::int64_t last = lastOnTheLine(registers.first, registers.last);
    for (std::int64_t i = registers.first; i <= last; ++i) {
        const auto address = static_cast<std::int32_t>(i);
        const Register_Reading reading = comm.link.readingOf(comm.form.Unit_Id, address);
        if (!reading.fault || reading.current()) continue;
        const bool zero =
            reading.age == Reading_Age::Never && comm.link.RegisterValue(comm.form.Unit_Id, address) == 0;
        (zero ? gaps.zero : gaps.older) = true;
    }
}

Page_Gaps gapsOf(const Comm_Context& comm, std::int32_t field) {
    Page_Gaps gaps;
    const Cell_Table& cells = comm.document.Fields(field).Cells;
    if (!cells.dimensioned()) return gaps;
    for (std::int32_t row = 1; row <= cells.rows(); ++row)
        for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
            addGaps(comm, cells(row, column), gaps);
    return gaps;
}

void addName(std::string& names, const std::string& name) { names += (names.empty() ? "" : ", ") + name; }

std::string pagesText(const Comm_Context& comm) {
    std::string older;
    std::string zero;
    for (std::int32_t field = 1; field <= comm.document.Field_Count; ++field) {
        const Page_Gaps gaps = gapsOf(comm, field);
        if (gaps.older) addName(older, pageName(comm.document, field));
        if (gaps.zero) addName(zero, pageName(comm.document, field));
    }
    std::string text;
    if (!older.empty()) text += " An older reading, or what was last written, is shown on: " + older + ".";
    if (!zero.empty()) text += " 0 is shown in place of values on: " + zero + ".";
    return text.empty() ? " No page shows a value of them." : text;
}

void tellGaps(const Comm_Context& comm, const Upload_Result& result) {
    std::string blocks;
    for (const Block_Result& block : result.blocks)
        if (block.failed()) addName(blocks, rangeText(block) + " (" + reasonText(block.answer) + ")");
    Message_Bar& bar = comm.mainForm.messageBar();
    bar.withdraw(bar_topic::unreadBeforeDownload);
    bar.withdraw(bar_topic::unmarkedChange);
    if (blocks.empty()) return bar.withdraw(bar_topic::uploadGaps);
    tell(comm, bar_topic::uploadGaps, Bar_Kind::Warning,
         "The upload could not read registers " + blocks + "." + pagesText(comm));
}

} // namespace

void tellUploadGaps(const Comm_Context& comm, const Upload_Result& result) {
    ignoringFailure([&] { tellGaps(comm, result); });
}

// Polling.

namespace {

std::string gapText(const Polled_Gap& gap) {
    const std::string what = gap.response.empty() ? " are not answered since " : " are refused since ";
    const std::string why = gap.response.empty() ? "" : " (" + gap.response + ")";
    return gap.registers + what + gap.since + why;
}

/// The gaps as they are now: one that was there before keeps its time.
std::vector<Polled_Gap> polledGaps(const Comm_Context& comm) {
    std::vector<Polled_Gap> gaps;
    const auto& blocks = comm.document.Holding_Blocks;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i) {
        if (blocks(i).Request != onlineScan) continue;
        const Block_Result result = blockResult(comm, blocks(i));
        if (!result.failed()) continue;
        Polled_Gap gap{i, rangeText(result), result.answer, {}};
        for (const Polled_Gap& before : comm.form.Polled_Gaps)
            if (before.block == i) gap.since = before.since;
        if (gap.since.empty()) gap.since = comm.mainForm.timeOfDay();
        gaps.push_back(std::move(gap));
    }
    return gaps;
}

} // namespace

void tellPolledGaps(const Comm_Context& comm) {
    if (comm.form.Comm_Lost_Now) return; // the cells and a notice tell of that
    std::vector<Polled_Gap> gaps = polledGaps(comm);
    if (gaps == comm.form.Polled_Gaps) return;
    comm.form.Polled_Gaps = std::move(gaps);
    std::string text;
    for (const Polled_Gap& gap : comm.form.Polled_Gaps)
        text += (text.empty() ? "" : "; ") + gapText(gap);
    if (text.empty()) return comm.mainForm.messageBar().withdraw(bar_topic::polledGaps);
    tell(comm, bar_topic::polledGaps, Bar_Kind::Warning,
         "Polled registers " + text + ": the values shown of them are older than that.", {logButton(comm)});
}

void forgetPolledGaps(const Comm_Context& comm) {
    comm.form.Polled_Gaps.clear();
    comm.mainForm.messageBar().withdraw(bar_topic::polledGaps);
}

} // namespace zorvane
