// SPDX-License-Identifier: MIT
// The system's side of the comparison with the models: a case a line comes in, its outcome goes out.

#include "tests/models/host.h"

#include <cstdint>
#include <exception>
#include <iostream>
#include <string>

namespace zorvane::models {

std::string bytesOf(const Json& text) {
    std::string bytes;
    const std::string utf8 = text.get<std::string>();
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80U) {
            bytes += utf8[i];
            continue;
        }
        const auto follower = static_cast<unsigned char>(utf8.at(++i));
        bytes += static_cast<char>(((lead & 3U) << 6U) | (follower & 0x3FU));
    }
    return bytes;
}

Json charactersOf(const std::string& bytes) {
    std::string utf8;
    for (const char each : bytes) {
        const auto code = static_cast<unsigned char>(each);
        if (code < 0x80U) {
            utf8 += each;
            continue;
        }
        utf8 += static_cast<char>(0xC0U | (code >> 6U));
        utf8 += static_cast<char>(0x80U | (code & 0x3FU));
    }
    return utf8;
}

namespace {

void fillColumn(Cell_Rec& definition, const Json& column) {
    definition.Value = bytesOf(column["heading"]);
    definition.Width = column["width"].get<std::int16_t>();
    definition.Alignment = bytesOf(column["alignment"]);
    definition.Modifiable = column["modifiable"].get<bool>();
    definition.Column_Type = bytesOf(column["type"]);
    definition.Bits_Negative_Format = bytesOf(column["bits"]);
    definition.Modbus_Request = bytesOf(column["request"]);
}

void fillCell(Cell_Rec& cell, const Json& asked) {
    cell.Address = bytesOf(asked["address"]);
    cell.Is_Ascii_Range = asked["ascii"].get<bool>();
    cell.Address_End = bytesOf(asked["end"]);
    cell.Value = bytesOf(asked["value"]);
    cell.Format = bytesOf(asked["format"]);
    cell.Modbus_Request = bytesOf(asked["request"]);
    cell.Min_Value = bytesOf(asked["min"]);
    cell.Max_Value = bytesOf(asked["max"]);
    const Json& messages = asked["messages"];
    cell.Has_Messages = !messages.is_null();
    if (!cell.Has_Messages) return;
    cell.Messages.redim(static_cast<std::int32_t>(messages.size()));
    for (std::size_t k = 0; k < messages.size(); ++k)
        cell.Messages(static_cast<std::int32_t>(k) + 1) = {messages[k][0].get<std::int32_t>(),
                                                           bytesOf(messages[k][1])};
}

} // namespace

void fillField(Field_Rec& field, const Json& table) {
    for (std::int32_t c = 1; c <= field.Columns; ++c) {
        fillColumn(field.Cells(0, c), table["columns"][static_cast<std::size_t>(c) - 1]);
        for (std::int32_t r = 1; r <= field.Rows; ++r)
            fillCell(field.Cells(r, c),
                     table["cells"][static_cast<std::size_t>(r) - 1][static_cast<std::size_t>(c) - 1]);
    }
}

Json valuesOf(const Field_Rec& field) {
    Json rows = Json::array();
    for (std::int32_t r = 1; r <= field.Rows; ++r) {
        Json row = Json::array();
        for (std::int32_t c = 1; c <= field.Columns; ++c)
            row.push_back(charactersOf(field.Cells(r, c).Value));
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace zorvane::models

int main() {
    using namespace zorvane::models;
    std::ios::sync_with_stdio(false);
    try {
        for (std::string line; std::getline(std::cin, line);) {
            const Json asked = Json::parse(line);
            const std::string kind = asked["kind"];
            const Json outcome = kind == "table"     ? filledTable(asked)
                                 : kind == "edit"    ? committedEdit(asked)
                                 : kind == "history" ? stepsDone(asked)
                                                     : transfersDone(asked);
            std::cout << outcome.dump() << '\n';
        }
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
    return 0;
}
