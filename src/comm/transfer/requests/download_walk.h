// SPDX-License-Identifier: MIT
#pragma once

#include "comm/transfer/requests/download_request.h"

namespace zorvane {

/// Hands the cells of a field that a download sends to `visit`, column by column, until it returns false;
/// false then. The table isn't touched any more after that.
template <class Visit>
bool visitSentCells(const Declara_Zorvane& document, std::int32_t field, Visit&& visit) {
    const Cell_Table& cells = document.Fields(field).Cells;
    for (std::int32_t column = 1; column <= cells.columns(); ++column) {
        if (!cells(0, column).Modifiable) continue;
        for (std::int32_t row = 1; row <= cells.rows(); ++row)
            if (!visit(Cell_Place{field, row, column})) return false;
    }
    return true;
}

} // namespace zorvane
