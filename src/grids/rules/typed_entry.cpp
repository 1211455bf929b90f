// SPDX-License-Identifier: MIT
#include "grids/rules/typed_entry.h"

#include "cells/format/cell_paths.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

namespace zorvane {

namespace {

Cell_Format formatOf(std::string_view word) { return cellFormat(word, paths::typing.words); }

std::string textOr(std::string_view text, std::string_view whenBlank) {
    return std::string(trimBlanks(text).empty() ? whenBlank : text);
}

Typed_Entry numberEntry(const Cell_Rec& cell, std::string_view text) {
    std::string number = textOr(text, "0");
    if (cell.Is_Ascii_Range) return {Entry_Kind::Ascii, std::move(number)};
    const Entry_Kind kind = isNumeric(number) ? Entry_Kind::Number : Entry_Kind::Not_Numeric;
    return {kind, std::move(number)};
}

Typed_Entry timeEntry(const Cell_Rec& cell, std::string_view text) {
    std::string time = textOr(text, "0:00");
    if (isTime(time)) return {Entry_Kind::Time, std::move(time)};
    if (formatOf(cell.Format) != Cell_Format::Time && isNumeric(time)) return numberEntry(cell, time);
    return {Entry_Kind::Bad_Time, std::move(time)};
}

} // namespace

Commit_Path commitPath(std::string_view columnType, std::string_view format) {
    const Column_Kind kind = columnKind(columnType);
    const Cell_Format word = formatOf(format);
    if (takesNumbers(kind)) return word == Cell_Format::Time ? Commit_Path::Time : Commit_Path::Number;
    if (kind == Column_Kind::Time)
        return word == Cell_Format::Plain ? Commit_Path::Number : Commit_Path::Time;
    return Commit_Path::Free_Text;
}

bool keepsAnyText(const Cell_Rec& definition, const Cell_Rec& cell) {
    switch (commitPath(definition.Column_Type, cell.Format)) {
    case Commit_Path::Time:
        return false;
    case Commit_Path::Number:
        return cell.Is_Ascii_Range;
    case Commit_Path::Free_Text:
        break;
    }
    return !cell.Has_Messages;
}

Typed_Entry typedEntry(const Cell_Rec& definition, const Cell_Rec& cell, std::string_view text) {
    switch (commitPath(definition.Column_Type, cell.Format)) {
    case Commit_Path::Time:
        return timeEntry(cell, text);
    case Commit_Path::Number:
        return numberEntry(cell, text);
    case Commit_Path::Free_Text:
        break;
    }
    return {Entry_Kind::Free_Text, std::string(text)};
}

} // namespace zorvane
