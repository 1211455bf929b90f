// SPDX-License-Identifier: MIT
#include "edit/find_cells.h"

#include "edit/named_cells.h"
#include "edit/wanted_value.h"
#include "grids/rules/value_findings.h"
#include "template/model/each_cell.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"

#include <algorithm>

namespace zorvane::edit {

namespace {

bool hasRegister(const Cell_Rec& cell) { return !trimBlanks(cell.Address).empty(); }

/// Looks at one cell after the other.
class Finder {
  public:
    Finder(const Declara_Zorvane& document, const Find_Query& query, const Cell_Marks& marks)
        : document_(document), query_(query), marks_(marks), wanted_(upperTrimmed(query.text)) {}

    [[nodiscard]] bool finds(const Cell_Place& place, const Cell_Rec& definition,
                             const Cell_Rec& cell) const {
        if (!definition.Modifiable && !hasRegister(cell)) return false;
        if (query_.changedOnly && !marks_.isChanged(place)) return false;
        if (query_.differsFromFactoryOnly && !marks_.differsFromFactory(place)) return false;
        if (wanted_.empty() || contains(valueText(cell)) || isAtRegister(cell)) return true;
        return (hasRegister(cell) || !rowHasRegister(place)) && contains(cellPath(document_, place));
    }

  private:
    [[nodiscard]] bool contains(std::string_view text) const {
        return upperCase(text).find(wanted_) != std::string::npos;
    }

    [[nodiscard]] bool isAtRegister(const Cell_Rec& cell) const {
        if (upperTrimmed(cell.Address) == wanted_) return hasRegister(cell);
        const bool number = !wanted_.empty() && std::all_of(wanted_.begin(), wanted_.end(),
                                                            [](char c) { return c >= '0' && c <= '9'; });
        if (!number || !hasRegister(cell)) return false;
        const double wanted = Val(wanted_);
        if (const auto half = halfAddress(cell.Address)) return Val(half->number) == wanted;
        return cell.Is_Ascii_Range && Val(cell.Address) <= wanted && wanted <= Val(cell.Address_End);
    }

    [[nodiscard]] bool rowHasRegister(const Cell_Place& place) const {
        const Field_Rec& field = document_.Fields(place.field);
        for (std::int32_t c = 1; c <= field.Columns; ++c)
            if (hasRegister(field.Cells(place.row, c))) return true;
        return false;
    }

    const Declara_Zorvane& document_;
    const Find_Query& query_;
    const Cell_Marks& marks_;
    std::string wanted_;
};

} // namespace

std::vector<Cell_Place> foundCells(const Declara_Zorvane& document, const Find_Query& query,
                                   const Cell_Marks& marks) {
    const Finder finder(document, query, marks);
    std::vector<Cell_Place> found;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec& definition, const Cell_Rec& cell) {
        if (finder.finds(place, definition, cell)) found.push_back(place);
    });
    return found;
}

std::optional<Cell_Place> nextFound(const std::vector<Cell_Place>& found, const Cell_Place& from) {
    if (found.empty()) return std::nullopt;
    const auto next = std::upper_bound(found.begin(), found.end(), from);
    return next == found.end() ? found.front() : *next;
}

std::optional<Cell_Place> previousFound(const std::vector<Cell_Place>& found, const Cell_Place& from) {
    if (found.empty()) return std::nullopt;
    const auto next = std::lower_bound(found.begin(), found.end(), from);
    return next == found.begin() ? found.back() : *std::prev(next);
}

std::function<bool(const Cell_Place&)> differsFrom(const Declara_Zorvane& document,
                                                   const Declara_Zorvane& other) {
    return [&document, &other](const Cell_Place& place) {
        if (!hasCell(document, place) || !hasCell(other, place)) return hasCell(document, place);
        return valueText(document.Fields(place.field).Cells(place.row, place.column)) !=
               valueText(other.Fields(place.field).Cells(place.row, place.column));
    };
}

} // namespace zorvane::edit
