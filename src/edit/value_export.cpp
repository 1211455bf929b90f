// SPDX-License-Identifier: MIT
#include "edit/value_export.h"

#include "cells/cell_names.h"
#include "edit/csv_text.h"
#include "edit/named_cells.h"
#include "edit/value_columns.h"
#include "edit/wanted_value.h"
#include "template/model/each_cell.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <algorithm>

namespace zorvane::edit {

namespace {

const std::string byteOrderMark = "\xEF\xBB\xBF";
const std::string lineEnd = "\r\n";

/// A number stays one for the spreadsheet; all else is text to it.
std::string writtenValue(const Cell_Rec& definition, const Cell_Rec& cell, char decimalSign) {
    std::string text = valueText(cell);
    const bool number = !cell.Has_Messages && holdsNumbers(definition, cell);
    if (!number || !(isNumeric(text) || isTime(text))) return guarded(text);
    std::replace(text.begin(), text.end(), '.', decimalSign);
    return text;
}

std::string registerText(const Cell_Rec& cell) {
    const std::string end(cell.Is_Ascii_Range ? trimBlanks(cell.Address_End) : std::string_view());
    return harmless(std::string(trimBlanks(cell.Address)) + (end.empty() ? "" : "-" + end));
}

std::vector<std::string> headings() { return {value_columns.begin(), value_columns.end()}; }

} // namespace

std::string exportedValues(const Declara_Zorvane& document, const Csv_Style& style) {
    std::string text = byteOrderMark + csvLine(headings(), style.separator) + lineEnd;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec& definition, const Cell_Rec& cell) {
        if (!definition.Modifiable) return;
        text += toUtf8(csvLine({numberText(place.field), numberText(place.row), numberText(place.column),
                                harmless(pageName(document, place.field)),
                                harmless(rowName(document, place.field, place.row)),
                                harmless(trimBlanks(definition.Value)), registerText(cell),
                                writtenValue(definition, cell, style.decimalSign)},
                               style.separator));
        text += lineEnd;
    });
    return text;
}

} // namespace zorvane::edit
