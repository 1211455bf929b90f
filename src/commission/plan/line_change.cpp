// SPDX-License-Identifier: MIT
#include "commission/plan/line_change.h"

#include "cells/cell_reading.h"
#include "template/sections/messages.h"
#include "values/numbers.h"

namespace zorvane::commission {

namespace {

/// The number that a cell's value means: that of a list's text for a code.
std::int32_t meantNumber(const Cell_Rec& cell, std::uint16_t value) {
    if (!cell.Has_Messages) return value;
    return toLong(Val(messageText(cell, value)));
}

/// The cell of the write that has the register.
const Cell_Rec* cellAt(const Declara_Zorvane& document, const Plan_Write& write, std::int32_t number) {
    for (const Cell_Place& place : write.cells) {
        const Cell_Table& cells = document.Fields(place.field).Cells;
        const auto range = cellRegisters(cells(0, place.column), cells(place.row, place.column));
        if (range && range->first <= number && number <= range->last) return &cells(place.row, place.column);
    }
    return nullptr;
}

} // namespace

std::vector<Line_Change> lineChanges(const Declara_Zorvane& document, const Identity_Section& section,
                                     const std::vector<Plan_Write>& writes) {
    std::vector<Line_Change> changes;
    for (std::size_t number = 0; number < writes.size(); ++number) {
        const Plan_Write& write = writes[number];
        for (const Line_Register& link : section.link) {
            const Cell_Rec* cell = cellAt(document, write, link.number);
            if (cell == nullptr) continue;
            const auto at = static_cast<std::size_t>(link.number - write.address);
            if (at >= write.values.size()) continue;
            const std::int32_t meant = meantNumber(*cell, write.values[at]);
            Line_Change change{number, std::nullopt, std::nullopt};
            if (link.what == "unit" && meant >= 1 && meant <= 247) change.unit = meant;
            if (link.what == "baud" && meant >= 300) change.baud = meant;
            changes.push_back(change);
        }
    }
    return changes;
}

std::string unitMisfit(const Declara_Zorvane& document, const Identity_Section& section,
                       const Cell_Place& place) {
    const Cell_Table& cells = document.Fields(place.field).Cells;
    const Cell_Rec& cell = cells(place.row, place.column);
    const auto range = cellRegisters(cells(0, place.column), cell);
    if (!range || cell.Is_Ascii_Range) return {};
    for (const Line_Register& link : section.link) {
        if (link.what != "unit" || link.number != range->first) continue;
        const double value = Val(cell.Value);
        const double meant = cell.Has_Messages ? Val(messageText(cell, toLong(value))) : value;
        if (meant < 1 || meant > 247) return numberText(meant) + " is no unit number: they go from 1 to 247";
    }
    return {};
}

} // namespace zorvane::commission
