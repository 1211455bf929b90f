// SPDX-License-Identifier: MIT
#include "compare/kept_side.h"

#include "template/model/each_cell.h"

#include <utility>

namespace zorvane::compare {

Kept_Side::Kept_Side(const Declara_Zorvane& shape, const Side& side) : controller_(side.isController()) {
    forEachCell(shape, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec&) {
        Cell_Side cell = side.at(place);
        if (cell.value || !cell.read) cells_.emplace_hint(cells_.end(), place, std::move(cell));
    });
}

Cell_Side Kept_Side::at(const Cell_Place& place) const {
    const auto cell = cells_.find(place);
    return cell == cells_.end() ? Cell_Side() : cell->second;
}

} // namespace zorvane::compare
