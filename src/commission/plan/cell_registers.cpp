// SPDX-License-Identifier: MIT
#include "commission/plan/cell_registers.h"

#include "cells/cell_reading.h"
#include "values/numbers.h"
#include "values/registers.h"

#include <algorithm>

namespace zorvane::commission {

namespace {

Part partOfCell(const Cell_Rec& cell) {
    if (const auto half = halfAddress(cell.Address))
        return half->half == Register_Half::High ? Part::High : Part::Low;
    if (cell.Is_Ascii_Range || cell.Has_Messages) return Part::Whole;
    const Cell_Format format = cellFormat(cell.Format, paths::transfer.words);
    if (format == Cell_Format::Minutes) return Part::Minutes;
    return format == Cell_Format::Seconds ? Part::Seconds : Part::Whole;
}

} // namespace

Cell_Registers registersOf(const Declara_Zorvane& document, const Cell_Place& place) {
    const Cell_Table& cells = document.Fields(place.field).Cells;
    const Cell_Rec& cell = cells(place.row, place.column);
    Cell_Registers found;
    found.address = cell.Address;
    found.part = partOfCell(cell);
    if (cell.Is_Ascii_Range && isNumeric(cell.Address) && isNumeric(cell.Address_End)) {
        found.range = {longValue(cell.Address), longValue(cell.Address_End)};
        found.address += "-" + std::string(cell.Address_End);
    } else if (const auto range = cellRegisters(cells(0, place.column), cell)) {
        found.range = *range;
    }
    return found;
}

bool partsMeet(Part a, Part b) noexcept {
    const bool halves = (a == Part::High && b == Part::Low) || (a == Part::Low && b == Part::High);
    const bool times =
        (a == Part::Minutes && b == Part::Seconds) || (a == Part::Seconds && b == Part::Minutes);
    return !halves && !times;
}

bool meetsAny(const std::vector<Register_Range>& ranges, const Register_Range& range) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const Register_Range& each) { return meet(each, range); });
}

Stage stageOf(const Identity_Section& section, const Register_Range& range) {
    for (const Line_Register& link : section.link)
        if (meet({link.number, link.number}, range)) return Stage::Link;
    return meetsAny(section.last, range) ? Stage::Last : Stage::Usual;
}

} // namespace zorvane::commission
