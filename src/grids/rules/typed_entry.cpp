// SPDX-License-Identifier: MIT
#include "grids/rules/typed_entry.h"

#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <algorithm>
#include <array>

namespace zorvane {

namespace {

template <std::size_t N> bool isOneOf(std::string_view word, const std::array<std::string_view, N>& words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

constexpr std::array<std::string_view, 4> numberColumns = {"NUMERIC_UNSIGNED", "NUMERIC", "ASCII",
                                                           "NUMERIC_OR_ASCII"};
/// Formats that make a cell of a TIME column a number.
constexpr std::array<std::string_view, 4> numberFormats = {"NUMERIC", "ASCII", "NUMERIC_OR_ASCII", ""};

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
    if (upperCase(cell.Format) != "TIME" && isNumeric(time)) return numberEntry(cell, time);
    return {Entry_Kind::Bad_Time, std::move(time)};
}

} // namespace

Commit_Path commitPath(std::string_view columnType, std::string_view format) {
    const std::string type = upperCase(columnType);
    const std::string word = upperCase(format);
    if (isOneOf(type, numberColumns)) return word == "TIME" ? Commit_Path::Time : Commit_Path::Number;
    if (type == "TIME") return isOneOf(word, numberFormats) ? Commit_Path::Number : Commit_Path::Time;
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
