// SPDX-License-Identifier: MIT
#include "edit/history/changed_cells.h"

#include "grids/rules/value_findings.h"
#include "template/model/each_cell.h"
#include "template/sections/messages.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane::edit {

namespace {

/// What the writer makes of the document's own value. A code that is no number stands for itself. A list's
/// text is put into `listText`.
const std::string& writtenText(const Declara_Zorvane& document, const Cell_Place& place, const Cell_Rec& cell,
                               std::string& listText) {
    const std::string& own = document.Passing.own(cell, {place.field, place.row, place.column});
    if (!cell.Has_Messages) return own;
    listText = own;
    ignoringFailure([&] { listText = messageText(cell, longValue(own)); });
    return listText;
}

/// A cell without a text was blank.
const std::string& orBlank(const std::string* text) {
    static const std::string blank;
    return text == nullptr ? blank : *text;
}

} // namespace

void Changed_Cells::take(const Declara_Zorvane& document) {
    texts_.clear();
    known_ = true;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        std::string listText;
        const std::string& text = writtenText(document, place, cell, listText);
        if (!text.empty()) texts_.push_back({place, text});
    });
}

void Changed_Cells::forget() {
    texts_.clear();
    known_ = false;
}

bool Changed_Cells::isChanged(const Declara_Zorvane& document, const Cell_Place& place) const {
    if (!known_ || !hasCell(document, place)) return false;
    const Cell_Table& cells = document.Fields(place.field).Cells;
    const auto known =
        std::lower_bound(texts_.begin(), texts_.end(), place,
                         [](const Text& text, const Cell_Place& at) { return text.place < at; });
    const bool held = known != texts_.end() && known->place == place;
    std::string listText;
    return writtenText(document, place, cells(place.row, place.column), listText) !=
           orBlank(held ? &known->text : nullptr);
}

std::vector<Cell_Place> Changed_Cells::all(const Declara_Zorvane& document) const {
    std::vector<Cell_Place> changed;
    if (!known_) return changed;
    auto known = texts_.begin(); // both go by page, row and column
    std::string listText;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        while (known != texts_.end() && known->place < place)
            ++known;
        const bool held = known != texts_.end() && known->place == place;
        if (writtenText(document, place, cell, listText) != orBlank(held ? &known->text : nullptr))
            changed.push_back(place);
    });
    return changed;
}

} // namespace zorvane::edit
