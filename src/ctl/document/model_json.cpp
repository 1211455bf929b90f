// SPDX-License-Identifier: MIT
#include "ctl/document/model_json.h"

namespace zorvane::ctl {

Json messagesJson(const std::vector<Message_Note>& messages) {
    Json list = Json::array();
    for (const Message_Note& note : messages)
        list.push_back(
            {{"style", note.style}, {"title", jsonText(note.title)}, {"text", jsonPath(note.text)}});
    return list;
}

namespace {

Json configurationJson(const std::optional<Reading_Note>& note) {
    if (!note) return nullptr;
    return {{"ok", note->ok}, {"loaded", note->loaded}, {"failure", jsonFailure(note->failure)}};
}

/// The entries of an array from `first` on; none when it has no dimensions.
template <class Array, class Convert>
Json listFrom(std::int32_t first, const Array& array, Convert&& convert) {
    Json list = Json::array();
    if (!array.dimensioned()) return list;
    for (std::int32_t i = first; i <= array.upperBound(); ++i)
        list.push_back(convert(array(i)));
    return list;
}

Json configColumnJson(const Config_Column_Rec& column) {
    return {{"Description", jsonText(column.Description)},
            {"Width", column.Width},
            {"Alignment", jsonText(column.Alignment)},
            {"Column_Type", jsonText(column.Column_Type)}};
}

Json downloadBlockJson(const Download_Block_Rec& block) {
    return {{"Model", jsonText(block.Model)},
            {"First_Address", jsonText(block.First_Address)},
            {"Last_Address", jsonText(block.Last_Address)},
            {"Block_Kind", block.Block_Kind}};
}

Json holdingBlockJson(const Holding_Block_Rec& block) {
    return {{"First_Address", block.First_Address},
            {"Last_Address", block.Last_Address},
            {"Function_Code", block.Function_Code},
            {"Request", jsonText(block.Request)}};
}

Json messageJson(const Message_Rec& message) {
    return {{"Code", message.Code}, {"Text", jsonText(message.Text)}};
}

void put(Json& cell, const char* name, const std::string& text) {
    if (!text.empty()) cell[name] = jsonText(text);
}
void put(Json& cell, const char* name, std::int16_t number) {
    if (number != 0) cell[name] = number;
}
void put(Json& cell, const char* name, bool flag) {
    if (flag) cell[name] = true;
}

/// The members of a cell that something was written to.
Json cellJson(const Cell_Rec& cell) {
    Json json = Json::object();
    put(json, "Row", cell.Row);
    put(json, "Column", cell.Column);
    put(json, "Min_Value", cell.Min_Value);
    put(json, "Max_Value", cell.Max_Value);
    put(json, "Address", cell.Address);
    put(json, "Address_End", cell.Address_End);
    put(json, "Modifiable", cell.Modifiable);
    put(json, "Value", cell.Value);
    put(json, "Width", cell.Width);
    put(json, "Alignment", cell.Alignment);
    put(json, "Column_Type", cell.Column_Type);
    put(json, "Modbus_Request", cell.Modbus_Request);
    put(json, "Bits_Negative_Format", cell.Bits_Negative_Format);
    put(json, "Is_Ascii_Range", cell.Is_Ascii_Range);
    put(json, "Has_Messages", cell.Has_Messages);
    put(json, "Format", cell.Format);
    if (cell.Has_Messages) json["Messages"] = listFrom(1, cell.Messages, messageJson);
    return json;
}

void writeCells(Json_Stream& json, const Cell_Table& cells) {
    json.openList();
    const std::int32_t rows = cells.dimensioned() ? cells.rows() : -1;
    for (std::int32_t row = 0; row <= rows; ++row) {
        json.openList();
        const std::int32_t written = cells.lastWrittenColumn(row);
        for (std::int32_t column = 1; column <= cells.columns(); ++column)
            if (column <= written)
                json.value(cellJson(cells(row, column)));
            else
                json.emptyObject();
        json.close();
    }
    json.close();
}

void writeFields(Json_Stream& json, const Checked_Array<Field_Rec>& fields) {
    json.openObject();
    for (std::int32_t f = 0; fields.dimensioned() && f <= fields.upperBound(); ++f) {
        const Field_Rec& field = fields(f);
        if (!field.Touched) continue;
        json.name(std::to_string(f));
        json.openObject();
        json.member("Description", jsonText(field.Description));
        json.member("Rows", field.Rows);
        json.member("Columns", field.Columns);
        json.member("Config_Values", listFrom(1, field.Config_Values, jsonText));
        json.name("Cells");
        writeCells(json, field.Cells);
        json.close();
    }
    json.close();
}

Json coloursJson(const Colour_Words& words) {
    return {{"Color_Txt_Modifiable", jsonText(words.Color_Txt_Modifiable)},
            {"Color_Txt_Exception", jsonText(words.Color_Txt_Exception)},
            {"Color_Txt_Writing", jsonText(words.Color_Txt_Writing)},
            {"Color_Txt_Error", jsonText(words.Color_Txt_Error)},
            {"Color_Txt_Normal", jsonText(words.Color_Txt_Normal)},
            {"Color_Back_Modifiable", jsonText(words.Color_Back_Modifiable)},
            {"Color_Back_Exception", jsonText(words.Color_Back_Exception)},
            {"Color_Back_Writing", jsonText(words.Color_Back_Writing)},
            {"Color_Back_Normal", jsonText(words.Color_Back_Normal)},
            {"Color_Back_Error", jsonText(words.Color_Back_Error)}};
}

} // namespace

void writeModel(Json_Stream& json, const Opened_Document& opened) {
    const Declara_Zorvane& document = opened.document;
    json.member("template", {{"loaded", opened.ztp.loaded}, {"failure", jsonFailure(opened.ztp.failure)}});
    json.member("configuration", configurationJson(opened.configuration));
    json.member("messages", messagesJson(opened.messages));
    json.member("Controller_Model", jsonText(document.Controller_Model));
    json.member("Field_Count", document.Field_Count);
    json.member("Config_Column_Count", document.Config_Column_Count);
    json.member("Numeric_Rows", document.Numeric_Rows);
    json.member("Always_Block_Count", document.Always_Block_Count);
    json.member("Config_Columns", listFrom(1, document.Config_Columns, configColumnJson));
    json.name("Fields");
    writeFields(json, document.Fields);
    json.member("Download_Blocks", listFrom(0, document.Download_Blocks, downloadBlockJson));
    json.member("Not_Downloadable", listFrom(1, document.Not_Downloadable, jsonText));
    json.member("Holding_Blocks", listFrom(1, document.Holding_Blocks, holdingBlockJson));
    json.member("Comm_Request_Ms", document.Comm_Request_Ms);
    json.member("Comm_Out_Ms", document.Comm_Out_Ms);
    json.member("Comm_Size", document.Comm_Size);
    json.member("Holding_Registers",
                opened.Holding_Registers ? jsonNumber(*opened.Holding_Registers) : Json(nullptr));
    json.member("Colors", coloursJson(document.Colors));
}

} // namespace zorvane::ctl
