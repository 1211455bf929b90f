// SPDX-License-Identifier: MIT
#include "commission/desk/desk_rows.h"

#include "cells/cell_names.h"
#include "commission/plan/cell_registers.h"

#include <algorithm>
#include <map>
#include <utility>

namespace zorvane::commission {

namespace {

Desk_Row namedRow(const Declara_Zorvane& document, const Cell_Place& place, const std::string& address) {
    Desk_Row row;
    row.place = place;
    row.page = pageName(document, place.field);
    row.name = rowName(document, place.field, place.row, place.column);
    row.heading = document.Fields(place.field).Cells(0, place.column).Value;
    row.address = address;
    return row;
}

/// How the grids show these registers of a cell; empty where one of them isn't known.
std::string shownIn(const Row_Sources& sources, const Cell_Place& place, const Known_Registers& known) {
    const Register_Range range = registersOf(sources.document, place).range;
    compare::Controller_Registers registers;
    std::int32_t number = range.first;
    for (const auto& value : known) {
        if (!value) return {};
        registers.take(number++, {*value});
    }
    if (number != range.last + 1) return {};
    const Identity_Section none;
    return compare::Controller_Side(sources.document, none, registers).at(place).shown;
}

/// What somebody should know of a value before it goes out.
std::string stageNote(const Identity_Section& section, const Register_Range& range) {
    switch (stageOf(section, range)) {
    case Stage::Last:
        return "goes out after all others: it may stop a process";
    case Stage::Link:
        return "goes out last of all: it changes the line itself";
    case Stage::Usual:
        break;
    }
    return {};
}

std::string whyNotSent(const compare::Row& row) {
    switch (row.sign) {
    case compare::Sign::Not_Read:
        return "its register couldn't be read";
    case compare::Sign::Read_Only:
        return "downloads don't write it";
    case compare::Sign::Changing:
        return "it changes by itself";
    case compare::Sign::Left_Out:
    case compare::Sign::One_Side:
    case compare::Sign::Equal:
    case compare::Sign::Differs:
        break;
    }
    return "a download sends nothing for it";
}

using Cells_By_Place = std::map<Cell_Place, const Planned_Cell*>;

Cells_By_Place byPlace(const Plan& plan) {
    Cells_By_Place cells;
    for (const Planned_Cell& cell : plan.cells)
        cells.emplace(cell.place, &cell);
    return cells;
}

const Planned_Cell* cellAt(const Cells_By_Place& cells, const Cell_Place& place) {
    const auto found = cells.find(place);
    return found == cells.end() ? nullptr : found->second;
}

/// Of a plan in which every cell is named.
bool isShown(const compare::Row& row, const Planned_Cell* named) {
    using compare::Sign;
    if (named != nullptr) return true;
    return row.sign == Sign::Not_Read || row.sign == Sign::Differs || row.sign == Sign::Changing ||
           row.sign == Sign::Read_Only;
}

} // namespace

std::vector<Desk_Row> sendRows(const Row_Sources& sources, const Plan& usual, const Plan& named) {
    const Cells_By_Place usualCells = byPlace(usual);
    const Cells_By_Place namedCells = byPlace(named);
    std::vector<Desk_Row> rows;
    for (const compare::Row& each : named.comparison.rows) {
        const bool modifiable =
            sources.document.Fields(each.place.field).Cells(0, each.place.column).Modifiable;
        const Planned_Cell* possible = cellAt(namedCells, each.place);
        if (!modifiable || !isShown(each, possible)) continue;
        Desk_Row row = namedRow(sources.document, each.place, each.address);
        row.present = each.right.shown;
        row.wanted = each.left.shown;
        row.tickable = possible != nullptr && possible->write.has_value();
        const Planned_Cell* usualCell = cellAt(usualCells, each.place);
        row.ticked = row.tickable && usualCell != nullptr && usualCell->write.has_value();
        if (!row.tickable)
            row.note = possible != nullptr ? possible->why : whyNotSent(each);
        else if (usualCell != nullptr && !usualCell->write)
            row.note = usualCell->why;
        else if (each.registers)
            row.note = stageNote(sources.section, *each.registers);
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<Desk_Row> furtherRows(const Row_Sources& sources, const Further_Writes& further,
                                  const compare::Controller_Registers& now) {
    std::vector<Desk_Row> rows;
    for (const Planned_Cell& cell : further.impossible) {
        rows.push_back(namedRow(sources.document, cell.place, cell.address));
        rows.back().note = cell.why;
    }
    for (const Planned_Cell& cell : plannedCells(further.writes, sources.document)) {
        if (!cell.write || further.done.contains(*cell.write)) continue;
        const Plan_Write& write = further.writes[*cell.write];
        Desk_Row row = namedRow(sources.document, cell.place, cell.address);
        Known_Registers present;
        Known_Registers wanted;
        for (std::int32_t at = cell.registers.first; at <= cell.registers.last; ++at) {
            present.push_back(now.valueAt(at));
            const auto index = static_cast<std::size_t>(at - write.address);
            const bool inside = at >= write.address && index < write.values.size();
            wanted.push_back(inside ? std::optional(write.values[index]) : std::nullopt);
        }
        row.present = shownIn(sources, cell.place, present);
        row.wanted = shownIn(sources, cell.place, wanted);
        row.tickable = row.ticked = true;
        row.note = stageNote(sources.section, cell.registers);
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<Desk_Row> endRows(const Row_Sources& sources, const Send_Report& report,
                              const std::vector<Desk_Row>& shown) {
    std::map<Cell_Place, const Desk_Row*> earlier;
    for (const Desk_Row& row : shown)
        earlier.emplace(row.place, &row);
    std::vector<Desk_Row> rows;
    for (const Sent_Row& each : report.rows) {
        Desk_Row row = namedRow(sources.document, each.place, each.address);
        row.present = shownIn(sources, each.place, each.before);
        row.wanted = shownIn(sources, each.place, each.sent);
        if (const auto was = earlier.find(each.place); was != earlier.end()) {
            if (row.present.empty()) row.present = was->second->present;
            if (row.wanted.empty()) row.wanted = was->second->wanted;
        }
        row.readBack = shownIn(sources, each.place, each.readBack);
        row.state = each.state;
        row.note = each.answer;
        rows.push_back(std::move(row));
    }
    return rows;
}

Row_Counts countsOf(const std::vector<Desk_Row>& rows) {
    Row_Counts counts;
    for (const Desk_Row& row : rows) {
        std::size_t& count = !row.tickable ? counts.impossible : row.ticked ? counts.ticked : counts.unticked;
        ++count;
    }
    return counts;
}

} // namespace zorvane::commission
