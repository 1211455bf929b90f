// SPDX-License-Identifier: MIT
#include "edit/text_block.h"

#include "edit/csv_text.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace zorvane::edit {

namespace {

std::string escaped(std::string_view text) {
    const std::string utf8 = toUtf8(text);
    std::string out;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t point = takeUtf8(utf8, at);
        const bool plain = point < 0x80 && point != U'&' && point != U'<' && point != U'>' && point != U'"';
        if (plain)
            out += static_cast<char>(point);
        else
            out += "&#" + numberText(static_cast<std::int32_t>(point)) + ";";
    }
    return out;
}

/// The style says "text" to the spreadsheets that know it.
std::string htmlCell(const std::string& text) {
    const std::string style = isNumeric(text) ? "" : " style=\"mso-number-format:'\\@'\"";
    return "<td" + style + ">" + escaped(text) + "</td>";
}

} // namespace

Text_Rows textRows(std::string_view clipboard) {
    Text_Rows rows;
    for (Csv_Record& record : csvRecords(clipboard, '\t'))
        rows.push_back(std::move(record.fields));
    return rows;
}

std::string tabbedText(const Text_Rows& rows) {
    std::string text;
    for (const std::vector<std::string>& row : rows)
        text += csvLine(row, '\t') + "\r\n";
    return text;
}

std::string htmlTable(const Text_Rows& rows) {
    std::string html = "<table>\n";
    for (const std::vector<std::string>& row : rows) {
        html += "<tr>";
        for (const std::string& text : row)
            html += htmlCell(text);
        html += "</tr>\n";
    }
    return html + "</table>\n";
}

} // namespace zorvane::edit
