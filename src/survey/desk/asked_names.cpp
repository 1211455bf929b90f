// SPDX-License-Identifier: MIT
#include "survey/desk/asked_names.h"

#include "cells/cell_names.h"

#include <algorithm>

namespace zorvane::survey {

namespace {

constexpr std::size_t mostNames = 3;

bool isOfHoldingRegisters(const Asked& asked) {
    return asked.function == 3 || asked.function == 6 || asked.function == 16 || asked.function == 22 ||
           asked.function == 23;
}

std::int32_t columnOf(Cell_Table& cells, const Register_Cell& wanted) {
    for (std::int32_t column = 1; column <= cells.lastWrittenColumn(wanted.row); ++column)
        if (&cells(wanted.row, column) == wanted.cell) return column;
    return 1;
}

/// Adds the names of a register's cells that aren't there yet.
void addNamesAt(std::vector<std::string>& names, Declara_Zorvane& document, std::int32_t number) {
    for (std::int32_t field = 1; field <= document.Field_Count && names.size() < mostNames; ++field) {
        Cell_Table& cells = document.Fields(field).Cells;
        if (!cells.dimensioned()) continue;
        const auto at = cells.cellsAtRegister(number);
        const std::vector<Register_Cell> found(at.begin(), at.end());
        for (const Register_Cell& cell : found) {
            const std::string name = cellName(document, field, cell.row, columnOf(cells, cell));
            if (names.size() < mostNames && std::find(names.begin(), names.end(), name) == names.end())
                names.push_back(name);
        }
    }
}

std::vector<std::string> namesIn(const Asked& asked, const Known_Template& known) {
    std::vector<std::string> names;
    const std::int32_t first = asked.address + known.addressBase;
    for (std::int32_t i = 0; i < asked.count && names.size() < mostNames; ++i)
        addNamesAt(names, *known.document, first + i);
    return names;
}

} // namespace

std::vector<std::string> namesAsked(const Asked& asked, const std::vector<Known_Template>& templates) {
    if (!isOfHoldingRegisters(asked)) return {};
    for (const Known_Template& known : templates)
        if (std::vector<std::string> names = namesIn(asked, known); !names.empty()) return names;
    return {};
}

std::string registersAsked(const Asked& asked, const std::vector<Known_Template>& templates) {
    if (!isOfHoldingRegisters(asked)) return "";
    std::int32_t first = asked.address;
    for (const Known_Template& known : templates) {
        if (namesIn(asked, known).empty()) continue;
        first += known.addressBase;
        break;
    }
    const std::string text = std::to_string(first);
    return asked.count > 1 ? text + "-" + std::to_string(first + asked.count - 1) : text;
}

} // namespace zorvane::survey
