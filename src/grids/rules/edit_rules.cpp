// SPDX-License-Identifier: MIT
#include "grids/rules/edit_rules.h"

#include "values/numbers.h"

#include <cmath>

namespace zorvane {

std::string comboListOf(const Cell_Rec& cell) {
    std::string list;
    for (std::int32_t i = 1; i <= cell.Messages.upperBound(); ++i)
        list += "|#" + numberText(i - 1) + ";" + cell.Messages(i).Text;
    return list;
}

std::int32_t editMaxLengthOf(const Cell_Rec& cell) {
    const std::int32_t registers = toLong(Val(cell.Address_End) - Val(cell.Address) + 1.0);
    return registers > 0 ? toLong(2.0 * registers) : 0;
}

Row_Hit rowHit(std::int16_t mouseY, const Row_Hit_Grid& grid) {
    const double rowsBelowTop = std::trunc(static_cast<double>(mouseY) / grid.rowHeight);
    Row_Hit hit;
    hit.mouseRow = toInteger(rowsBelowTop + grid.topRow);
    if (hit.mouseRow < 1 && grid.cols > 1) hit.mouseRow = 1;
    // Scrolled, the row numbers alone would take the heading for the row that it covers.
    if (hit.mouseRow <= 1 || mouseY < grid.rowHeight) return hit;
    if (hit.mouseRow - 1 >= grid.rows) hit.mouseRow = toInteger(grid.rows);
    hit.selects = true;
    return hit;
}

} // namespace zorvane
