#include "ctl/watch.h"

#include "comm/online.h"
#include "comm/session.h"
#include "ctl/notices.h"
#include "ctl/text_table.h"
#include "ctl/transfer.h"

#include <ostream>
#include <set>

namespace zorvane {

namespace {

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
        cells.push_back(std::move(cell));
    }
    Json json;
    json["refresh"] = refresh.number;
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
    table.print(out, 0);
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

bool runWatch(const Comm_Context& comm, Held_Frame& frame, const Watch_Plan& plan) {
    Live_Refresh refresh;
    frame.held().onText = [&refresh](std::int32_t row, std::int32_t col, const std::string& text) {
        refresh.texts[{row, col + 1}] = text;
    };
    const auto tick = [&] {
        refresh.texts.clear();
        TMR_Actualiza_online_Timer(comm);
        ++refresh.number;
        refresh.lost = comm.form.Comm_Lost_Now;
        plan.show(refresh);
    };
    const auto over = [&] {
        return comm.form.Cancel_Requested || (plan.count > 0 && refresh.number >= plan.count);
    };
    frame.onTimer = [&](Timer_Name timer) {
        if (timer == Timer_Name::TMR_Actualiza_online && !over()) tick();
    };
    readWholePass(comm, onlineScan);
    if (!over() && plan.portOpen()) {
        goOnline(comm);
        tick();
        frame.wait_until(over);
    }
    MNU_Disconnect_Click(comm);
    frame.onTimer = nullptr;
    frame.held().onText = nullptr;
    return refresh.number > 0 && !refresh.lost;
}

} // namespace zorvane
