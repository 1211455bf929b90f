// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_place.h"
#include "template/model/declara_zorvane.h"

#include <algorithm>
#include <cstdint>

namespace zorvane {

/// Calls `look(place, definition, cell)` for the cells of all fields, row by row, as far as some were ever
/// written. The tables are read only, so looking costs no memory.
template <class Look> void forEachCell(const Declara_Zorvane& document, Look&& look) {
    if (!document.Fields.dimensioned()) return;
    const std::int32_t last = std::min<std::int32_t>(document.Field_Count, document.Fields.upperBound());
    for (std::int32_t f = 1; f <= last; ++f) {
        const Field_Rec& field = document.Fields(f);
        if (!field.Cells.dimensioned()) continue;
        const std::int32_t rows = std::min<std::int32_t>(field.Rows, field.Cells.rows());
        for (std::int32_t r = 1; r <= rows; ++r) {
            const std::int32_t columns =
                std::min<std::int32_t>(field.Columns, field.Cells.lastWrittenColumn(r));
            for (std::int32_t c = 1; c <= columns; ++c)
                look(Cell_Place{f, r, c}, field.Cells(0, c), field.Cells(r, c));
        }
    }
}

} // namespace zorvane
