// SPDX-License-Identifier: MIT
#include "edit/history/changed_cells.h"

#include "grids/rules/value_findings.h"
#include "template/model/each_cell.h"
#include "template/sections/messages.h"
#include "values/numbers.h"

#include <algorithm>

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
    pages_.clear();
    if (!document.Fields.dimensioned()) return;
    const std::int32_t last = std::min<std::int32_t>(document.Field_Count, document.Fields.upperBound());
    for (std::int32_t f = 1; f <= last; ++f)
        pages_.push_back({std::max<std::int32_t>(document.Fields(f).Columns, 0), {}});
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        Page& page = pages_[static_cast<std::size_t>(place.field) - 1];
        const auto at = static_cast<std::size_t>((place.row - 1) * page.columns + place.column - 1);
        if (page.texts.size() <= at) page.texts.resize(at + 1);
        page.texts[at] = writtenText(document, place, cell);
    });
}

/// Cells that nobody wrote to are blank.
const std::string* Changed_Cells::textOf(const Cell_Place& place) const {
    static const std::string blank;
    if (place.field < 1 || static_cast<std::size_t>(place.field) > pages_.size()) return nullptr;
    const Page& page = pages_[static_cast<std::size_t>(place.field) - 1];
    if (place.row < 1 || place.column < 1 || place.column > page.columns) return nullptr;
    const auto at = static_cast<std::size_t>((place.row - 1) * page.columns + place.column - 1);
    return at < page.texts.size() ? &page.texts[at] : &blank;
}

bool Changed_Cells::isChanged(const Declara_Zorvane& document, const Cell_Place& place) const {
    const std::string* const base = textOf(place);
    if (base == nullptr || !hasCell(document, place)) return false;
    const Cell_Table& cells = document.Fields(place.field).Cells;
    return writtenText(document, place, cells(place.row, place.column)) != *base;
}

std::vector<Cell_Place> Changed_Cells::all(const Declara_Zorvane& document) const {
    std::vector<Cell_Place> changed;
    if (pages_.empty()) return changed;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        const std::string* const base = textOf(place);
        if (base != nullptr && writtenText(document, place, cell) != *base) changed.push_back(place);
    });
    return changed;
}

} // namespace zorvane::edit
