// SPDX-License-Identifier: MIT
#include "grids/rules/value_findings.h"

#include "cells/format/cell_limits.h"
#include "grids/rules/typed_entry.h"
#include "template/line_scanner.h"
#include "template/model/each_cell.h"
#include "template/pro_interpreta_linea.h"
#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <algorithm>
#include <map>

namespace zorvane {

namespace {

bool timeIsOutside(const Cell_Rec& cell, const std::string& text) {
    if (trimBlanks(cell.Min_Value).empty() || trimBlanks(cell.Max_Value).empty()) return false;
    const std::int32_t seconds = timeSeconds(text);
    return Val(cell.Min_Value) > seconds || Val(cell.Max_Value) < seconds;
}

bool isOutside(const Cell_Rec& definition, const Cell_Rec& cell) {
    if (!definition.Modifiable) return false; // a reading is what it is
    const Typed_Entry entry = typedEntry(definition, cell, cell.Value);
    if (entry.kind == Entry_Kind::Time) return timeIsOutside(cell, entry.text);
    if (entry.kind != Entry_Kind::Number) return false;
    if (!fitsRegister(entry.text, registerWidth(cell))) return true;
    if (!checksLimits(definition)) return false;
    const Limits limits = filledLimits(definition, cell);
    const double number = Val(entry.text);
    return (!trimBlanks(limits.high).empty() && number > Val(limits.high)) ||
           (!trimBlanks(limits.low).empty() && number < Val(limits.low));
}

/// A value that can't be looked at, such as a number without end, is outside any limits.
std::optional<Stray_Value> strayValue(const Cell_Rec& definition, const Cell_Rec& cell,
                                      const Cell_Place& place) {
    if (trimBlanks(cell.Value).empty()) return std::nullopt;
    bool stray = true;
    ignoringFailure([&] {
        stray = cell.Has_Messages ? !isListed(cell, longValue(cell.Value)) : isOutside(definition, cell);
    });
    if (!stray) return std::nullopt;
    return Stray_Value{place, !cell.Has_Messages, cell.Value};
}

} // namespace

std::string placeText(const Declara_Zorvane& document, const Cell_Place& place) {
    const Field_Rec& field = document.Fields(place.field);
    const std::string name{trimBlanks(field.Description)};
    const std::string heading{trimBlanks(field.Cells(0, place.column).Value)};
    std::string text = name.empty() ? "page " + numberText(place.field) : name;
    text += ", row " + numberText(place.row);
    return heading.empty() ? text + ", column " + numberText(place.column) : text + ", " + heading;
}

bool hasCell(const Declara_Zorvane& document, const Cell_Place& place) {
    if (!document.Fields.dimensioned() || place.field < 1 || place.field > document.Fields.upperBound())
        return false;
    const Field_Rec& field = document.Fields(place.field);
    return place.field <= document.Field_Count && field.Cells.dimensioned() && place.row >= 1 &&
           place.row <= field.Rows && place.row <= field.Cells.rows() && place.column >= 1 &&
           place.column <= field.Columns && place.column <= field.Cells.columns();
}

std::vector<Stray_Value> strayValues(const Declara_Zorvane& document) {
    std::map<Cell_Place, Stray_Value> found;
    for (const Unlisted_Text& unlisted : document.Unlisted)
        if (hasCell(document, unlisted.place))
            found.insert_or_assign(unlisted.place, Stray_Value{unlisted.place, false, unlisted.text});
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec& definition, const Cell_Rec& cell) {
        if (auto stray = strayValue(definition, cell, place)) found.try_emplace(place, std::move(*stray));
    });
    std::vector<Stray_Value> all;
    for (auto& [place, stray] : found)
        all.push_back(std::move(stray));
    return all;
}

bool noFileHolds(std::string_view text) { return text.find_first_of(",;") != std::string_view::npos; }

std::vector<Cell_Place> cellsThatNoFileHolds(const Declara_Zorvane& document) {
    std::vector<Cell_Place> found;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        if (!cell.Has_Messages && noFileHolds(cell.Value)) found.push_back(place);
    });
    return found;
}

std::optional<Cell_Place> rowFromLine(const Declara_Zorvane& document, std::string_view file,
                                      std::int32_t line) {
    Line_Scanner scanner;
    std::optional<Cell_Place> place;
    ignoringFailure([&] {
        for (std::int32_t number = 1; !place; ++number) {
            const auto text = takeLine(file);
            if (!text) return;
            const auto entry = scanner.scan(*text);
            if (!entry || number < line || upperCase(scanner.section()) != "FIELD_#_DEFAULT") continue;
            const auto key = numberedKey(scanner.section(), entry->key);
            if (!key || key->key != "ROW_#") continue;
            const Cell_Place row{scanner.sectionNumber(), key->number, 1};
            if (hasCell(document, row)) place = row;
        }
    });
    return place;
}

} // namespace zorvane
