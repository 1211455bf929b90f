// SPDX-License-Identifier: MIT
// The sections that describe single cells: addresses, limits, formats and lists.

#include "template/sections/comma_list.h"
#include "template/sections/messages.h"
#include "template/sections/section_readers.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <array>

namespace zorvane {

namespace {

// [FIELD_#_CONFIGURATION]: a key holds one item for each column of its row.

using Item_Action = void (*)(Cell_Rec&, std::string_view item);

void storeAddress(Cell_Rec& cell, std::string_view item) { cell.Address = item; }

void storeAsciiRange(Cell_Rec& cell, std::string_view item) {
    const std::size_t dash = item.find('-');
    cell.Address = item.substr(0, dash);
    if (dash == std::string_view::npos) return;
    cell.Address_End = item.substr(dash + 1);
    cell.Is_Ascii_Range = true;
}

void storeMaximum(Cell_Rec& cell, std::string_view item) {
    cell.Max_Value = isNumeric(item) ? item : std::string_view("32767");
}

void storeMinimum(Cell_Rec& cell, std::string_view item) {
    cell.Min_Value = isNumeric(item) ? item : std::string_view("-32768");
}

std::string secondsLimit(std::string_view item) { return isTime(item) ? numberText(timeSeconds(item)) : "0"; }

void storeMinimumTime(Cell_Rec& cell, std::string_view item) { cell.Min_Value = secondsLimit(item); }

void storeMaximumTime(Cell_Rec& cell, std::string_view item) { cell.Max_Value = secondsLimit(item); }

void storeFormat(Cell_Rec& cell, std::string_view item) { cell.Format = trimBlanks(item); }

constexpr std::array<std::pair<std::string_view, Item_Action>, 7> itemKeys = {{
    {"ROWADDRESS_#", storeAddress},
    {"ROWASCIIRANGE_#", storeAsciiRange},
    {"ROWADDRESSNUMERICMAXVALUE_#", storeMaximum},
    {"ROWADDRESSNUMERICMINVALUE_#", storeMinimum},
    {"ROWADDRESSTIMEMINVALUE_#", storeMinimumTime},
    {"ROWADDRESSTIMEMAXVALUE_#", storeMaximumTime},
    {"ROWADDRESSFORMAT_#", storeFormat},
}};

/// [FIELD_#_MESSAGES] has but this.
constexpr std::string_view messageAddressKey = "ADDRESS_#";

} // namespace

bool readFieldConfiguration(const Interpreter& interpreter, const Key_Line& line) {
    const auto store = findAction(itemKeys, line.key);
    if (store == nullptr) return true;
    Field_Rec& field = interpreter.field(line.section);
    forEachItem(line.value, [&](std::int32_t column, std::string_view item) {
        store(field.Cells(line.number, column), item);
        return true;
    });
    return true;
}

/// Gives every cell of the field that lies at the key's register, whole or half, its own copy of the list.
bool readFieldMessages(const Interpreter& interpreter, const Key_Line& line) {
    if (line.key != messageAddressKey) return true;
    Field_Rec& field = interpreter.document.Fields(line.section);
    if (field.Rows < 0 || field.Columns < 0) return true;
    for (const Register_Cell& place : field.Cells.cellsAtRegister(line.number)) {
        if (place.row > field.Rows || place.cell->Has_Messages) continue;
        field.Touched = true;
        readMessages(*place.cell, line.value);
    }
    // A size that was refused halfway may have left more rows than the table has.
    if (field.Rows > field.Cells.rows()) throw Run_Time_Failure(Failure::Subscript);
    return true;
}

Key_Names fieldConfigurationNames() { return namesIn(itemKeys); }

Key_Names fieldMessagesNames() { return {messageAddressKey}; }

} // namespace zorvane
