// SPDX-License-Identifier: MIT
#include "cells/cell_names.h"

#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

std::string pageName(const Declara_Zorvane& document, std::int32_t field) {
    const std::string name(trimBlanks(document.Fields(field).Description));
    return name.empty() ? "page " + numberText(field) : name;
}

std::string rowName(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                    std::int32_t column) {
    const Cell_Table& cells = document.Fields(field).Cells;
    const std::string name(column > 1 && !cells(0, 1).Modifiable ? trimBlanks(cells(row, 1).Value) : "");
    return name.empty() ? "row " + numberText(row) : name;
}

std::string cellName(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                     std::int32_t column) {
    return pageName(document, field) + ", " + rowName(document, field, row, column);
}

} // namespace zorvane
