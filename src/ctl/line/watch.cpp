// SPDX-License-Identifier: MIT
#include "ctl/line/watch.h"

#include "cells/cell_reading.h"
#include "comm/transfer/online.h"
#include "comm/transfer/session.h"
#include "ctl/document/notices.h"
#include "ctl/line/block_results.h"
#include "ctl/line/transfer.h"
#include "ctl/text/text_table.h"
#include "values/run_time_failure.h"

#include <ostream>
#include <set>

namespace zorvane::ctl {

namespace {

const std::string unread = "???";

std::set<std::int32_t> watchedColumns(const Live_Refresh& refresh) {
    std::set<std::int32_t> columns;
    for (const auto& [place, text] : refresh.texts)
        columns.insert(place.second);
    return columns;
}

std::string textAt(const Live_Refresh& refresh, std::int32_t row, std::int32_t column) {
    const auto found = refresh.texts.find({row, column});
    return found == refresh.texts.end() ? std::string() : found->second;
}

std::set<std::string> distinctReasons(const Live_Refresh& refresh) {
    std::set<std::string> reasons;
    for (const auto& [place, reason] : refresh.reasons)
        reasons.insert(reason);
    return reasons;
}

std::optional<std::string> faultOf(const Comm_Context& comm, const Cell_Rec& definition,
                                   const Cell_Rec& cell) {
    const auto registers = cellRegisters(definition, cell);
    if (!registers) return std::nullopt;
    for (std::int64_t address = registers->first; address <= registers->last; ++address)
        if (auto fault = readingFault(comm, static_cast<std::int32_t>(address))) return fault;
    return std::nullopt;
}

/// The refresh takes whatever the image holds: 0 or an older value for a block that is refused. Here that is
/// told from what was read.
void hideUnread(const Comm_Context& comm, std::int32_t field, Live_Refresh& refresh) {
    const Cell_Table& cells = comm.document.Fields(field).Cells;
    for (auto& [place, text] : refresh.texts) {
        const auto [row, column] = place;
        const auto fault = faultOf(comm, cells(0, column), cells(row, column));
        if (fault) refresh.reasons[place] = *fault;
        if (fault || refresh.lost) text = unread;
    }
}

std::string refreshes(std::int32_t count) {
    return std::to_string(count) + (count == 1 ? " refresh" : " refreshes");
}

/// Why a watch is over, in words.
std::string endText(const Live_Refresh& last, bool stopped) {
    if (last.number == 0)
        return stopped ? "The watch was stopped before its first refresh." : "Nothing was watched.";
    std::string text = std::string(stopped ? "The watch was stopped" : "The watch has ended") + " after " +
                       refreshes(last.number);
    text += stopped ? "" : ", as many as were asked for";
    return text + (last.lost ? ". The controller did not answer at the end." : ".");
}

} // namespace

Json refreshJson(const Declara_Zorvane& document, std::int32_t field, const Live_Refresh& refresh) {
    Json cells = Json::array();
    for (const auto& [place, text] : refresh.texts) {
        const auto [row, column] = place;
        Json cell;
        cell["row"] = row;
        cell["column"] = column;
        cell["heading"] = jsonText(document.Fields(field).Cells(0, column).Value);
        cell["text"] = jsonText(text);
        if (const auto reason = refresh.reasons.find(place); reason != refresh.reasons.end())
            cell["reason"] = jsonText(reason->second);
        cells.push_back(std::move(cell));
    }
    Json json;
    json["refresh"] = refresh.number;
    if (!refresh.time.empty()) json["time"] = refresh.time;
    json["lost"] = refresh.lost;
    json["cells"] = std::move(cells);
    return json;
}

void printRefresh(std::ostream& out, const Declara_Zorvane& document, std::int32_t field,
                  const Live_Refresh& refresh) {
    const Cell_Table& cells = document.Fields(field).Cells;
    const std::set<std::int32_t> columns = watchedColumns(refresh);
    Text_Table table;
    for (std::int32_t row = 0; row <= cells.rows(); ++row) {
        std::vector<std::string> line;
        if (!columns.contains(1)) line.push_back(printable(cells(row, 1).Value));
        for (const std::int32_t column : columns)
            line.push_back(printable(row == 0 ? cells(0, column).Value : textAt(refresh, row, column)));
        table.add(std::move(line));
    }
    if (refresh.number > 1) out << '\n';
    if (!refresh.time.empty()) out << refresh.time << '\n';
    table.print(out, 0);
    for (const std::string& reason : distinctReasons(refresh))
        out << unread << ' ' << printable(reason) << '\n';
}

std::string watchFault(const Declara_Zorvane& document, std::int32_t field) {
    if (field < 1 || field > document.Field_Count)
        return "There is no field " + std::to_string(field) + ": the document has fields 1 to " +
               std::to_string(document.Field_Count) + ".";
    if (document.Always_Block_Count < 1)
        return "The template has no block that is polled (ALWAYS): nothing of it is live.";
    const Cell_Table& cells = document.Fields(field).Cells;
    for (std::int32_t column = 1; cells.dimensioned() && column <= cells.columns(); ++column)
        if (cells(0, column).Modbus_Request == onlineScan) return {};
    return "Field " + std::to_string(field) + " has no live column (ALWAYS): choose another field.";
}

bool runWatch(const Comm_Context& comm, Held_Form& mainForm, const Watch_Plan& plan) {
    Live_Refresh refresh;
    mainForm.held().onText = [&refresh](std::int32_t row, std::int32_t col, const std::string& text) {
        refresh.texts[{row, col + 1}] = text;
    };
    const auto tick = [&] {
        refresh.texts.clear();
        refresh.reasons.clear();
        TMR_Actualiza_online_Timer(comm);
        ++refresh.number;
        refresh.lost = comm.form.Comm_Lost_Now;
        if (plan.time) refresh.time = plan.time();
        ignoringFailure([&] { hideUnread(comm, plan.field, refresh); });
        plan.show(refresh);
    };
    const auto over = [&] {
        return comm.form.Cancel_Requested || (plan.count > 0 && refresh.number >= plan.count);
    };
    mainForm.onTimer = [&](Timer_Name timer) {
        if (timer == Timer_Name::TMR_Actualiza_online && !over()) tick();
    };
    readWholePass(comm, onlineScan);
    if (!over() && plan.portOpen()) {
        goOnline(comm);
        tick();
        mainForm.wait_until(over);
    }
    const bool stopped = comm.form.Cancel_Requested;
    MNU_Disconnect_Click(comm);
    if (plan.ended) plan.ended(endText(refresh, stopped));
    mainForm.onTimer = nullptr;
    mainForm.held().onText = nullptr;
    const Polling_Result& result = comm.form.Last_Polling;
    return result.refreshes > 0 && !result.lost;
}

} // namespace zorvane::ctl
