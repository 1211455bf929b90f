// SPDX-License-Identifier: MIT
#include "edit/named_cells.h"

#include "cells/cell_names.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <optional>
#include <set>

namespace zorvane::edit {

namespace {

/// The last field that can be asked for.
std::int32_t lastField(const Declara_Zorvane& document) {
    if (!document.Fields.dimensioned()) return 0;
    return std::min<std::int32_t>(document.Field_Count, document.Fields.upperBound());
}

constexpr char separator = '/';

/// Upper case, without the blanks around the parts.
std::string comparable(std::string_view name) {
    std::string out;
    for (std::size_t start = 0; start <= name.size();) {
        const std::size_t end = std::min(name.find(separator, start), name.size());
        if (start > 0) out += separator;
        out += upperTrimmed(name.substr(start, end - start));
        start = end + 1;
    }
    return out;
}

/// What stands in a name after one of its parts; nothing when it doesn't begin with that part.
std::optional<std::string_view> after(std::string_view name, std::string_view part) {
    const std::string_view text = trimBlanks(part);
    std::size_t size = text.size();
    if (text.find(separator) == std::string_view::npos) { // asked of every row, so without a text of its own
        if (!isUpperCaseOf(name.substr(0, size), text)) return std::nullopt;
    } else {
        const std::string wanted = comparable(part);
        if (!name.starts_with(wanted)) return std::nullopt;
        size = wanted.size();
    }
    if (name.size() == size) return std::string_view();
    return name[size] == separator ? std::optional(name.substr(size + 1)) : std::nullopt;
}

std::string headingName(const Field_Rec& field, std::int32_t column) {
    const std::string heading(trimBlanks(field.Cells(0, column).Value));
    return heading.empty() ? "column " + numberText(column) : heading;
}

std::string textOfRow(const Field_Rec& field, std::int32_t row) {
    const bool named = field.Columns > 0 && !field.Cells(0, 1).Modifiable;
    return std::string(named ? trimBlanks(field.Cells(row, 1).Value) : "");
}

/// The cells of a row that a name without a heading stands for.
std::vector<Cell_Place> settingsOf(const Field_Rec& field, const Cell_Place& row) {
    std::vector<Cell_Place> settings;
    std::vector<Cell_Place> others;
    for (std::int32_t c = 1; c <= field.Columns; ++c) {
        const bool editable = field.Cells(0, c).Modifiable;
        const bool hasRegister = !trimBlanks(field.Cells(row.row, c).Address).empty();
        if (editable && hasRegister) settings.push_back({row.field, row.row, c});
        if (editable != hasRegister) others.push_back({row.field, row.row, c});
    }
    return settings.empty() ? others : settings;
}

void addCellsOfRow(const Field_Rec& field, const Cell_Place& row, std::string_view rest,
                   std::vector<Cell_Place>& found) {
    if (rest.empty()) {
        const std::vector<Cell_Place> settings = settingsOf(field, row);
        found.insert(found.end(), settings.begin(), settings.end());
        return;
    }
    for (std::int32_t c = 1; c <= field.Columns; ++c)
        if (comparable(headingName(field, c)) == rest || comparable("column " + numberText(c)) == rest)
            found.push_back({row.field, row.row, c});
}

void addCellsOfPage(const Field_Rec& field, std::int32_t number, std::string_view rest,
                    std::vector<Cell_Place>& found) {
    const std::int32_t rows = std::min<std::int32_t>(field.Rows, field.Cells.rows());
    for (std::int32_t r = 1; r <= rows; ++r) {
        const std::string text = textOfRow(field, r);
        auto inRow = text.empty() ? std::nullopt : after(rest, text);
        if (!inRow && rest.starts_with("ROW ")) inRow = after(rest, "row " + numberText(r));
        if (inRow) addCellsOfRow(field, {number, r, 0}, *inRow, found);
    }
}

/// The field whose page a name begins with; 0 when there is none.
std::int32_t pageOf(const Declara_Zorvane& document, std::string_view wanted) {
    for (std::int32_t f = 1; f <= lastField(document); ++f)
        if (after(wanted, pageName(document, f))) return f;
    return 0;
}

/// "Set point, Drop X, ...", each once.
class Name_List {
  public:
    void add(const std::string& name) {
        constexpr std::size_t most = 12;
        if (!seen_.insert(name).second || seen_.size() > most + 1) return;
        text_ += (text_.empty() ? "" : ", ") + (seen_.size() > most ? std::string("...") : name);
    }
    [[nodiscard]] const std::string& text() const { return text_; }

  private:
    std::set<std::string> seen_;
    std::string text_;
};

/// What a name could have been.
std::string otherNames(const Declara_Zorvane& document, std::string_view name) {
    Name_List names;
    const std::int32_t page = pageOf(document, comparable(name));
    if (page == 0) {
        for (std::int32_t f = 1; f <= lastField(document); ++f)
            names.add(pageName(document, f));
        return "The pages: " + names.text();
    }
    for (std::int32_t r = 1; r <= document.Fields(page).Rows; ++r)
        names.add(rowName(document, page, r));
    return "The rows of " + pageName(document, page) + ": " + names.text();
}

} // namespace

std::string rowName(const Declara_Zorvane& document, std::int32_t field, std::int32_t row) {
    const std::string text = textOfRow(document.Fields(field), row);
    return text.empty() ? "row " + numberText(row) : text;
}

std::string cellPath(const Declara_Zorvane& document, const Cell_Place& place) {
    return pageName(document, place.field) + separator + rowName(document, place.field, place.row) +
           separator + headingName(document.Fields(place.field), place.column);
}

std::vector<Cell_Place> cellsNamed(const Declara_Zorvane& document, std::string_view name) {
    std::vector<Cell_Place> found;
    const std::string wanted = comparable(name);
    for (std::int32_t f = 1; f <= lastField(document); ++f) {
        const Field_Rec& field = document.Fields(f);
        if (!field.Cells.dimensioned()) continue;
        auto rest = after(wanted, pageName(document, f));
        if (!rest) rest = after(wanted, "page " + numberText(f));
        if (rest && !rest->empty()) addCellsOfPage(field, f, *rest, found);
    }
    return found;
}

std::string nameProblem(const Declara_Zorvane& document, std::string_view name,
                        const std::vector<Cell_Place>& places) {
    const std::string quoted = "\"" + std::string(name) + "\"";
    if (places.empty()) return "no cell is named " + quoted + ". " + otherNames(document, name);
    Name_List cells;
    for (const Cell_Place& place : places)
        cells.add(cellPath(document, place) + " (" + numberText(place.field) + " " + numberText(place.row) +
                  " " + numberText(place.column) + ")");
    return quoted + " fits " + numberText(static_cast<std::int32_t>(places.size())) +
           " cells: " + cells.text();
}

} // namespace zorvane::edit
