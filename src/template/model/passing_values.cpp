// SPDX-License-Identifier: MIT
#include "template/model/passing_values.h"

namespace zorvane {

void Passing_Values::put(Cell_Rec& cell, const Cell_Place& place, const std::string& value) {
    if (cell.Value == value) return;
    Passing& passing = values_.try_emplace(place, Passing{cell.Value, cell.Value}).first->second;
    if (cell.Value != passing.shown) passing.own = cell.Value;
    passing.shown = value;
    cell.Value = value;
}

const std::string& Passing_Values::own(const Cell_Rec& cell, const Cell_Place& place) const {
    const auto passing = values_.find(place);
    return passing != values_.end() && passing->second.shown == cell.Value ? passing->second.own : cell.Value;
}

} // namespace zorvane
