// SPDX-License-Identifier: MIT
#include "edit/history/changed_cells.h"

#include "grids/rules/value_findings.h"
#include "template/model/each_cell.h"
#include "template/sections/messages.h"
#include "values/numbers.h"

#include <utility>

namespace zorvane::edit {

namespace {

/// What the writer makes of the document's own value. A code that is no number stands for itself.
std::string writtenText(const Declara_Zorvane& document, const Cell_Place& place, const Cell_Rec& cell) {
    const std::string& own = document.Passing.own(cell, {place.field, place.row, place.column});
    std::string text = own;
    if (cell.Has_Messages) ignoringFailure([&] { text = messageText(cell, longValue(own)); });
    return text;
}

} // namespace

void Changed_Cells::take(const Declara_Zorvane& document) {
    texts_.clear();
    known_ = true;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        std::string text = writtenText(document, place, cell);
        if (!text.empty()) texts_.emplace_hint(texts_.end(), place, std::move(text));
    });
}

void Changed_Cells::forget() {
    texts_.clear();
    known_ = false;
}

const std::string& Changed_Cells::textOf(const Cell_Place& place) const {
    static const std::string blank;
    const auto text = texts_.find(place);
    return text == texts_.end() ? blank : text->second;
}

bool Changed_Cells::isChanged(const Declara_Zorvane& document, const Cell_Place& place) const {
    if (!known_ || !hasCell(document, place)) return false;
    const Cell_Table& cells = document.Fields(place.field).Cells;
    return writtenText(document, place, cells(place.row, place.column)) != textOf(place);
}

std::vector<Cell_Place> Changed_Cells::all(const Declara_Zorvane& document) const {
    std::vector<Cell_Place> changed;
    if (!known_) return changed;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        if (writtenText(document, place, cell) != textOf(place)) changed.push_back(place);
    });
    return changed;
}

} // namespace zorvane::edit
