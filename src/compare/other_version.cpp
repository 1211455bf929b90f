// SPDX-License-Identifier: MIT
#include "compare/other_version.h"

#include "cells/cell_names.h"
#include "values/code_page.h"

namespace zorvane::compare {

namespace {

constexpr char between = '\0';

/// What a cell of one version shares with the same setting of another.
std::string matchOf(const Declara_Zorvane& document, const Cell_Place& place) {
    const Cell_Table& cells = document.Fields(place.field).Cells;
    const Cell_Rec& definition = cells(0, place.column);
    const Cell_Rec& cell = cells(place.row, place.column);
    std::string match;
    const auto add = [&](std::string_view part) { (match += upperTrimmed(part)) += between; };
    if (registersOf(definition, cell)) {
        add("register");
        add(cell.Address);
        add(holdsCharacters(definition, cell) ? std::string_view(cell.Address_End) : std::string_view());
        add(cell.Format);
        add(definition.Bits_Negative_Format);
        add(cell.Has_Messages ? "list" : "");
    } else {
        add("name");
        add(pageName(document, place.field));
        add(rowName(document, place.field, place.row, place.column));
        add(definition.Value);
    }
    return match;
}

template <class Take> void forEachPlace(const Declara_Zorvane& document, Take&& take) {
    for (std::int32_t field = 1; field <= document.Field_Count; ++field) {
        const Cell_Table& cells = document.Fields(field).Cells;
        for (std::int32_t row = 1; cells.dimensioned() && row <= cells.rows(); ++row)
            for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
                take(Cell_Place{field, row, column});
    }
}

} // namespace

/// Of several cells with one register the first one counts.
Other_Version_Side::Other_Version_Side(const Declara_Zorvane& shape, const Declara_Zorvane& other)
    : shape_(shape), other_(other) {
    forEachPlace(other_, [this](const Cell_Place& place) { places_.emplace(matchOf(other_, place), place); });
}

Cell_Side Other_Version_Side::at(const Cell_Place& place) const {
    const auto found = places_.find(matchOf(shape_, place));
    return found == places_.end() ? Cell_Side() : Document_Side(other_).at(found->second);
}

} // namespace zorvane::compare
