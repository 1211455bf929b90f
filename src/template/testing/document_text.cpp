// SPDX-License-Identifier: MIT
#include "template/testing/document_text.h"

#include "values/numbers.h"

#include <array>
#include <initializer_list>
#include <string_view>

namespace zorvane::doubles {

namespace {

std::string quoted(std::string_view text) {
    std::string result(1, '"');
    return result.append(text).append(1, '"');
}

/// Members of a record one after another: `Address "100", Width 800`, the empty ones left out.
class Members {
  public:
    Members& add(const char* name, std::string_view text) {
        return text.empty() ? *this : put(name, quoted(text));
    }
    Members& add(const char* name, std::int32_t number) {
        return number == 0 ? *this : put(name, numberText(number));
    }
    Members& flag(const char* name, bool on) { return on ? put(name, "") : *this; }

    [[nodiscard]] const std::string& text() const noexcept { return text_; }

  private:
    Members& put(const char* name, const std::string& value) {
        text_ += (text_.empty() ? "" : ", ") + std::string(name) + (value.empty() ? "" : " " + value);
        return *this;
    }

    std::string text_;
};

std::string listText(const Checked_Array<Message_Rec>& messages) {
    std::string text = "Messages";
    for (std::int32_t k = 1; k <= messages.upperBound(); ++k)
        text.append(" ").append(numberText(messages(k).Code)).append("=").append(quoted(messages(k).Text));
    return text;
}

/// "name rest\n", or nothing when there is no rest.
std::string line(const std::string& name, const std::string& rest) {
    return rest.empty() ? "" : name + " " + rest + "\n";
}

std::string at(const char* array, std::int32_t index) {
    return std::string(array) + "(" + numberText(index) + ")";
}

std::string cellLines(const Field_Rec& field, const std::string& name) {
    std::string lines;
    if (!field.Cells.dimensioned()) return lines;
    for (std::int32_t row = 0; row <= field.Cells.rows(); ++row)
        for (std::int32_t column = 0; column <= field.Cells.lastWrittenColumn(row); ++column)
            lines += line(name + ".Cells(" + numberText(row) + "," + numberText(column) + ")",
                          cellText(field.Cells(row, column)));
    return lines;
}

std::string upperGridLine(const Field_Rec& field, const std::string& name) {
    if (!field.Config_Values.dimensioned()) return "";
    std::string text;
    for (std::int32_t k = 1; k <= field.Config_Values.upperBound(); ++k)
        text.append(k > 1 ? " " : "").append(quoted(field.Config_Values(k)));
    return line(name + ".Config_Values", text);
}

/// Nothing for an array that holds entry 0 alone.
template <class Entry, class Text>
std::string entryLines(const char* name, const Checked_Array<Entry>& entries, Text&& text) {
    std::string lines;
    if (!entries.dimensioned() || entries.upperBound() == 0) return lines;
    for (std::int32_t k = 0; k <= entries.upperBound(); ++k)
        lines += line(at(name, k), text(entries(k)));
    return lines;
}

std::string columnText(const Config_Column_Rec& column) {
    return Members{}
        .add("Description", column.Description)
        .add("Width", column.Width)
        .add("Alignment", column.Alignment)
        .add("Column_Type", column.Column_Type)
        .text();
}

/// An empty block shows too, as "empty": how many there are matters.
std::string downloadBlockText(const Download_Block_Rec& block) {
    const Members members = Members{}
                                .add("Model", block.Model)
                                .add("First_Address", block.First_Address)
                                .add("Last_Address", block.Last_Address)
                                .add("Block_Kind", block.Block_Kind);
    return members.text().empty() ? "empty" : members.text();
}

std::string holdingBlockText(const Holding_Block_Rec& block) {
    const Members members = Members{}
                                .add("First_Address", block.First_Address)
                                .add("Last_Address", block.Last_Address)
                                .add("Function_Code", block.Function_Code)
                                .add("Request", block.Request);
    return members.text().empty() ? "empty" : members.text();
}

using Color_Member = std::string Colour_Words::*;
constexpr std::array<std::pair<const char*, Color_Member>, 10> colorMembers = {{
    {"Color_Txt_Modifiable", &Colour_Words::Color_Txt_Modifiable},
    {"Color_Txt_Exception", &Colour_Words::Color_Txt_Exception},
    {"Color_Txt_Writing", &Colour_Words::Color_Txt_Writing},
    {"Color_Txt_Error", &Colour_Words::Color_Txt_Error},
    {"Color_Txt_Normal", &Colour_Words::Color_Txt_Normal},
    {"Color_Back_Modifiable", &Colour_Words::Color_Back_Modifiable},
    {"Color_Back_Exception", &Colour_Words::Color_Back_Exception},
    {"Color_Back_Writing", &Colour_Words::Color_Back_Writing},
    {"Color_Back_Normal", &Colour_Words::Color_Back_Normal},
    {"Color_Back_Error", &Colour_Words::Color_Back_Error},
}};

std::string colorLines(const Colour_Words& colors) {
    static const Colour_Words defaults;
    std::string lines;
    for (const auto& [name, member] : colorMembers)
        if (colors.*member != defaults.*member) lines += line(name, quoted(colors.*member));
    return lines;
}

std::string ownLines(const Declara_Zorvane& document) {
    std::string lines = line("Controller_Model", document.Controller_Model);
    const auto number = [&](const char* name, std::int32_t value) {
        if (value != 0) lines += line(name, numberText(value));
    };
    number("Field_Count", document.Field_Count);
    number("Config_Column_Count", document.Config_Column_Count);
    if (document.Numeric_Rows) lines += line("Numeric_Rows", "True");
    number("Always_Block_Count", document.Always_Block_Count);
    number("Comm_Request_Ms", document.Comm_Request_Ms);
    number("Comm_Out_Ms", document.Comm_Out_Ms);
    number("Comm_Size", document.Comm_Size);
    number("Forza_Analogas_Ms", document.Forza_Analogas_Ms);
    number("Not_Downloadable_Count", document.Not_Downloadable_Count);
    number("Holding_Block_Count", document.Holding_Block_Count);
    return lines;
}

} // namespace

std::string cellText(const Cell_Rec& cell) {
    Members members;
    members.add("Row", cell.Row).add("Column", cell.Column);
    members.add("Min_Value", cell.Min_Value).add("Max_Value", cell.Max_Value);
    members.add("Address", cell.Address).add("Address_End", cell.Address_End);
    members.flag("Modifiable", cell.Modifiable).add("Value", cell.Value).add("Width", cell.Width);
    members.add("Alignment", cell.Alignment).add("Column_Type", cell.Column_Type);
    members.add("Modbus_Request", cell.Modbus_Request);
    members.add("Bits_Negative_Format", cell.Bits_Negative_Format);
    members.flag("Is_Ascii_Range", cell.Is_Ascii_Range).flag("Has_Messages", cell.Has_Messages);
    members.add("Format", cell.Format);
    if (cell.Messages.dimensioned()) members.flag(listText(cell.Messages).c_str(), true);
    return members.text();
}

std::string fieldText(const Declara_Zorvane& document, std::int32_t field) {
    const Field_Rec& record = document.Fields(field);
    const std::string name = at("Fields", field);
    const Members members = Members{}
                                .add("Description", record.Description)
                                .add("Rows", record.Rows)
                                .add("Columns", record.Columns);
    return line(name, members.text()) + upperGridLine(record, name) + cellLines(record, name);
}

std::string documentText(const Declara_Zorvane& document) {
    std::string lines = ownLines(document);
    lines += entryLines("Config_Columns", document.Config_Columns, columnText);
    if (document.Fields.dimensioned())
        for (std::int32_t f = 0; f <= document.Fields.upperBound(); ++f)
            lines += fieldText(document, f);
    lines += entryLines("Download_Blocks", document.Download_Blocks, downloadBlockText);
    lines += entryLines("Not_Downloadable", document.Not_Downloadable,
                        [](const std::string& text) { return text; });
    lines += entryLines("Holding_Blocks", document.Holding_Blocks, holdingBlockText);
    return lines + colorLines(document.Colors);
}

} // namespace zorvane::doubles
