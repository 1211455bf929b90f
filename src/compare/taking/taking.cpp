// SPDX-License-Identifier: MIT
#include "compare/taking/taking.h"

#include "cells/cell_names.h"
#include "compare/comparison_words.h"
#include "compare/held_value.h"
#include "grids/rules/value_findings.h"
#include "template/sections/messages.h"
#include "values/numbers.h"

#include <algorithm>
#include <utility>

namespace zorvane::compare {

namespace {

/// A list's code, from wherever it comes.
edit::Verdict judgedCode(const Cell_Rec& definition, const Cell_Rec& cell, const Row& row,
                         const std::string& text) {
    std::int32_t code = 0;
    const bool number = ignoringFailure([&] { code = longValue(text); });
    if (!number || !isListed(cell, code))
        return edit::Refusal{"its code " + text + " isn't in the list (" + edit::listedTexts(cell) + ")"};
    edit::Taken_Value taken{row.place, numberText(code), std::nullopt, true};
    taken.changes = taken.value != cell.Value;
    if (taken.changes && !definition.Modifiable) return edit::Refusal{"in a column that can't be edited"};
    return taken;
}

/// Whether the registers of a value hold what those of the side do; some of what a controller may hold, such
/// as an empty byte inside a text, no text says.
bool saysTheSame(const Cell_Rec& definition, Cell_Rec cell, const std::string& value, const Cell_Side& side) {
    if (!side.held) return true;
    cell.Value = value;
    const auto held = heldOf(definition, cell);
    return held && sameHeld(definition, cell, *held, *side.held);
}

edit::Verdict judgedSide(const Declara_Zorvane& document, const Row& row, const Cell_Side& side) {
    if (!side.read) return edit::Refusal{"not read"};
    if (!side.value) return edit::Refusal{"no value to take"};
    if (!hasCell(document, row.place)) return edit::Refusal{"for a cell that the template doesn't have"};
    const Cell_Table& cells = document.Fields(row.place.field).Cells;
    const Cell_Rec& definition = cells(0, row.place.column);
    const Cell_Rec& cell = cells(row.place.row, row.place.column);
    edit::Verdict verdict = cell.Has_Messages
                                ? judgedCode(definition, cell, row, side.text)
                                : edit::judged(document, row.place, side.text, {.asTyped = true});
    const auto* const taken = std::get_if<edit::Taken_Value>(&verdict);
    if (taken != nullptr && !saysTheSame(definition, cell, taken->value, side))
        return edit::Refusal{"no text says what its registers hold"};
    return verdict;
}

} // namespace

std::size_t Taking::changes() const {
    return static_cast<std::size_t>(std::count_if(
        taken.begin(), taken.end(), [](const edit::Taken_Value& value) { return value.changes; }));
}

Taking judgedTaking(const Declara_Zorvane& document, const std::vector<const Row*>& rows, Taken_Side from) {
    Taking taking;
    for (const Row* row : rows) {
        edit::Verdict verdict = judgedSide(document, *row, from == Taken_Side::Left ? row->left : row->right);
        if (auto* const value = std::get_if<edit::Taken_Value>(&verdict))
            taking.taken.push_back(std::move(*value));
        else
            taking.leftOut.push_back({row, std::get<edit::Refusal>(verdict).why});
    }
    return taking;
}

std::string takingText(const Taking& taking) {
    const std::size_t count = taking.taken.size();
    std::string text = count == 0   ? "No value was taken."
                       : count == 1 ? "1 value was taken."
                                    : std::to_string(count) + " values were taken.";
    if (taking.leftOut.empty()) return text;
    text += " " + std::to_string(taking.leftOut.size()) +
            (taking.leftOut.size() == 1 ? " was left out:" : " were left out:");
    const std::size_t listed = std::min(mostListed, taking.leftOut.size());
    for (std::size_t i = 0; i < listed; ++i) {
        const Row& row = *taking.leftOut[i].row;
        text += "\r\n" + row.page + ", " + settingText(row) + ": " + taking.leftOut[i].why;
    }
    if (listed < taking.leftOut.size())
        text += "\r\nand " + std::to_string(taking.leftOut.size() - listed) + " more";
    return text;
}

} // namespace zorvane::compare
