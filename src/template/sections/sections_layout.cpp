// SPDX-License-Identifier: MIT
// The sections that give the two grids their columns and the fields their tables.

#include "template/sections/section_readers.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <array>

namespace zorvane {

namespace {

// [CONFIGURATION_COLUMNS]

using Columns_Action = void (*)(Declara_Zorvane&, std::int32_t column, std::string_view value);

void readNumericRows(Declara_Zorvane& document, std::int32_t, std::string_view value) {
    document.Numeric_Rows = upperCase(value) == "YES";
}

void readColumnCount(Declara_Zorvane& document, std::int32_t, std::string_view value) {
    document.Config_Column_Count = toInteger(Val(value));
    document.Config_Columns.redim(document.Config_Column_Count);
}

void readConfigDescription(Declara_Zorvane& document, std::int32_t column, std::string_view value) {
    document.Config_Columns(column).Description = value;
}

void readConfigWidth(Declara_Zorvane& document, std::int32_t column, std::string_view value) {
    document.Config_Columns(column).Width = strictInteger(value);
}

void readConfigAlignment(Declara_Zorvane& document, std::int32_t column, std::string_view value) {
    document.Config_Columns(column).Alignment = value;
}

void readConfigType(Declara_Zorvane& document, std::int32_t column, std::string_view value) {
    document.Config_Columns(column).Column_Type = value;
}

constexpr std::array<std::pair<std::string_view, Columns_Action>, 6> configurationColumnsKeys = {{
    {"NUMERIC_ROWS", readNumericRows},
    {"CONFIGURATION_NC", readColumnCount},
    {"COL_#_DESC", readConfigDescription},
    {"COL_#_WIDTH", readConfigWidth},
    {"COL_#_ALIGNMENT", readConfigAlignment},
    {"COL_#_TYPE", readConfigType},
}};

// [CONFIGURATION_FIELDS]

using Fields_Action = void (*)(const Interpreter&, std::int32_t field, std::string_view value);

/// Counts the line, whatever the field's number.
void readFieldDescription(const Interpreter& interpreter, std::int32_t field, std::string_view value) {
    std::int16_t& count = interpreter.document.Field_Count;
    count = toInteger(count + 1.0);
    interpreter.field(field).Description = value;
}

/// Creates the field's table again, `rows,columns`.
void readFieldSize(const Interpreter& interpreter, std::int32_t number, std::string_view value) {
    const std::size_t comma = value.find(',');
    if (comma == std::string_view::npos) return;
    interpreter.field(number).Rows = toInteger(Val(value.substr(0, comma)));
    interpreter.field(number).Columns = toInteger(Val(value.substr(comma + 1)));
    Field_Rec& field = interpreter.field(number);
    field.Cells.redim(field.Rows, field.Columns);
}

constexpr std::array<std::pair<std::string_view, Fields_Action>, 2> configurationFieldsKeys = {{
    {"FIELD_#_DESC", readFieldDescription},
    {"FIELD_#_RC", readFieldSize},
}};

// [FIELD_#_COLUMNS] and [DEFAULT_#_COLUMNS]: the definition row of a field's table.

/// The definition of the line's column, which takes note of its own place.
Cell_Rec& definition(const Interpreter& interpreter, const Key_Line& line) {
    Cell_Rec& cell = interpreter.field(line.section).Cells(0, line.number);
    cell.Row = 0;
    cell.Column = toInteger(line.number);
    return cell;
}

using Definition_Action = void (*)(const Interpreter&, const Key_Line&);

void readHeading(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Value = trimBlanks(line.value);
}

void readWidth(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Width = strictInteger(line.value);
}

void readLenientWidth(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Width = toInteger(Val(line.value));
}

void readAlignment(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Alignment = trimBlanks(line.value);
}

void readType(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Column_Type = trimBlanks(line.value);
}

void readModifiable(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Modifiable = upperTrimmed(line.value) == "YES";
}

void readRequest(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Modbus_Request = upperTrimmed(line.value);
}

void readNegativeFormat(const Interpreter& interpreter, const Key_Line& line) {
    definition(interpreter, line).Bits_Negative_Format = trimBlanks(line.value);
}

constexpr std::array<std::pair<std::string_view, Definition_Action>, 7> fieldColumnsKeys = {{
    {"COL_#_DESC", readHeading},
    {"COL_#_WIDTH", readWidth},
    {"COL_#_ALIGNMENT", readAlignment},
    {"COL_#_TYPE", readType},
    {"COL_#_MODIFIABLE", readModifiable},
    {"COL_#_MDBUSREQUEST", readRequest},
    {"COL_#_BITSNEGATIVEFORMAT", readNegativeFormat},
}};

constexpr std::array<std::pair<std::string_view, Definition_Action>, 1> defaultColumnsKeys = {{
    {"COL_#_WIDTH", readLenientWidth},
}};

} // namespace

bool readConfigurationColumns(const Interpreter& interpreter, const Key_Line& line) {
    if (const auto action = findAction(configurationColumnsKeys, line.key))
        action(interpreter.document, line.number, line.value);
    return true;
}

bool readConfigurationFields(const Interpreter& interpreter, const Key_Line& line) {
    if (const auto action = findAction(configurationFieldsKeys, line.key))
        action(interpreter, line.number, line.value);
    return true;
}

bool readFieldColumns(const Interpreter& interpreter, const Key_Line& line) {
    if (const auto action = findAction(fieldColumnsKeys, line.key)) action(interpreter, line);
    return true;
}

bool readDefaultColumns(const Interpreter& interpreter, const Key_Line& line) {
    if (const auto action = findAction(defaultColumnsKeys, line.key)) action(interpreter, line);
    return true;
}

Key_Names configurationColumnsNames() { return namesIn(configurationColumnsKeys); }

Key_Names configurationFieldsNames() { return namesIn(configurationFieldsKeys); }

Key_Names fieldColumnsNames() { return namesIn(fieldColumnsKeys); }

Key_Names defaultColumnsNames() { return namesIn(defaultColumnsKeys); }

} // namespace zorvane
