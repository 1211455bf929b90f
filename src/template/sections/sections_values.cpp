// SPDX-License-Identifier: MIT
// The sections that a configuration file holds too: values of the cells and of the upper grid. And the
// colours.

#include "cells/format/cell_paths.h"
#include "template/sections/comma_list.h"
#include "template/sections/messages.h"
#include "template/sections/section_readers.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <array>

namespace zorvane {

namespace {

/// A time that stands in a file as plain seconds: 90 is `1:30`.
std::string timeFromSeconds(std::string_view item) {
    if (!isNumeric(item)) return "0:00";
    const std::int32_t seconds = longValue(item);
    return numberText(wholeMinutes(seconds)) + ":" + twoDigits(restSeconds(seconds));
}

/// Whether a list cell is given a text that its list doesn't have; no text at all is none.
bool isUnlisted(const Cell_Rec& cell, std::string_view item) {
    return cell.Has_Messages && !trimBlanks(item).empty() && !listedCode(cell, item);
}

std::string documentValue(const Cell_Rec& cell, std::string_view item) {
    if (cell.Has_Messages) return numberText(messageCode(cell, item));
    const bool plainSeconds = cellFormat(cell.Format, paths::typing.words) == Cell_Format::Time &&
                              item.find(':') == std::string_view::npos;
    return plainSeconds ? timeFromSeconds(item) : std::string(item);
}

using Color_Member = std::string Colour_Words::*;
constexpr std::array<std::pair<std::string_view, Color_Member>, 10> colorKeys = {{
    {"TXT_#_MODIFIABLEVALUES", &Colour_Words::Color_Txt_Modifiable},
    {"TXT_#_EXCEPTIONCOMM", &Colour_Words::Color_Txt_Exception},
    {"TXT_#_WRITTINGCOMM", &Colour_Words::Color_Txt_Writing},
    {"TXT_#_ERRORWRITTINGCOMM", &Colour_Words::Color_Txt_Error},
    {"TXT_#_NORMAL", &Colour_Words::Color_Txt_Normal},
    {"BCKGRND_#_MODIFIABLEVALUES", &Colour_Words::Color_Back_Modifiable},
    {"BCKGRND_#_EXCEPTIONCOMM", &Colour_Words::Color_Back_Exception},
    {"BCKGRND_#_WRITTINGCOMM", &Colour_Words::Color_Back_Writing},
    {"BCKGRND_#_NORMAL", &Colour_Words::Color_Back_Normal},
    {"BCKGRND_#_ERRORWRITTINGCOMM", &Colour_Words::Color_Back_Error},
}};

constexpr std::string_view rowKey = "ROW_#";
constexpr std::string_view fieldKey = "FIELD_#";

} // namespace

/// Stores a row's values. More of them than the field has columns rejects the line there; a row beyond the
/// last one stores nothing.
bool readFieldDefault(const Interpreter& interpreter, const Key_Line& line) {
    if (line.key != rowKey) return true;
    const Field_Rec& field = interpreter.document.Fields(line.section);
    bool accepted = true;
    forEachItem(line.value, [&](std::int32_t column, std::string_view item) {
        accepted = column <= field.Columns;
        if (!accepted || line.number > field.Rows) return accepted;
        const Cell_Rec& cell = field.Cells(line.number, column);
        interpreter.field(line.section).Cells(line.number, column).Value = documentValue(cell, item);
        if (isUnlisted(cell, item))
            interpreter.document.Unlisted.push_back({{line.section, line.number, column}, std::string(item)});
        return accepted;
    });
    return accepted;
}

/// Ends with exactly the items of this line.
bool readConfigurationDefault(const Interpreter& interpreter, const Key_Line& line) {
    if (line.key != fieldKey) return true;
    auto& values = interpreter.field(line.number).Config_Values;
    forEachItem(line.value, [&](std::int32_t k, std::string_view item) {
        values.redimPreserve(k);
        values(k) = item;
        return true;
    });
    return true;
}

bool readColors(const Interpreter& interpreter, const Key_Line& line) {
    if (const auto member = findAction(colorKeys, line.key)) interpreter.document.Colors.*member = line.value;
    return true;
}

Key_Names fieldDefaultNames() { return {rowKey}; }

Key_Names configurationDefaultNames() { return {fieldKey}; }

Key_Names colorsNames() { return namesIn(colorKeys); }

} // namespace zorvane
