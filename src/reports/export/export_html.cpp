// SPDX-License-Identifier: MIT
#include "reports/export/export_html.h"

#include "values/code_page.h"
#include "values/numbers.h"

#include <array>
#include <cstdio>

namespace zorvane {

namespace {

constexpr const char* look = R"(table { border-collapse: collapse; margin: 0.4em 0 1.6em 0; }
th, td { padding: 0.15em 0.5em; white-space: pre-wrap; }
th { background: #c0c0c0; border: 1px solid #000; font-weight: normal; }
.ruled td { border: 1px dotted #d0d0d0; }
.label { background: #ffffc0; padding: 0 0.2em; }
.line, .text { margin: 0; white-space: pre-wrap; }
.text { font-family: monospace; }
header, footer { font-size: 8.5pt; }
header { border-bottom: 1px solid #000; margin-bottom: 1em; }
footer { border-top: 1px solid #000; margin-top: 1em; }
.date { float: right; }
)";

/// Control characters have no place in HTML.
void addEscaped(std::string& html, std::string_view text) {
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '&')
            html += "&amp;";
        else if (character == '<')
            html += "&lt;";
        else if (character == '>')
            html += "&gt;";
        else if (character == '"')
            html += "&quot;";
        else if ((code < 0x20 && character != '\t') || code == 0x7F)
            html += "\xEF\xBF\xBD";
        else
            html += character;
    }
}

/// The bytes of Windows-1252 that stand for no character become control codes of Unicode, which HTML
/// doesn't take.
std::string withoutEmptyCodes(std::string text) {
    for (char& character : text)
        if (lacksCharacter(character)) character = '\x1A';
    return text;
}

std::string escaped(const std::string& text) {
    std::string html;
    addEscaped(html, toUtf8(withoutEmptyCodes(text)));
    return html;
}

std::string cssColour(Packed_Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour & 0xFFU, colour >> 8 & 0xFFU,
                  colour >> 16 & 0xFFU);
    return text.data();
}

std::string cellStyle(const Text_Style& style) {
    std::string css;
    if (style.Alignment == Align_Right) css += "text-align: right;";
    if (style.Alignment == Align_Center) css += "text-align: center;";
    if (style.ForeColor != 0) css += "color: " + cssColour(style.ForeColor) + ";";
    if (style.Font.Bold) css += "font-weight: bold;";
    return css.empty() ? "" : " style=\"" + css + "\"";
}

class Html_Export {
  public:
    explicit Html_Export(const Report_Content& content) : content_(content) {}

    std::string text() && {
        html_ = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
                escaped(content_.title + " " + content_.route) +
                "</title>\n<style>\nbody { font-family: sans-serif; font-size: " + numberText(textSize()) +
                "pt; }\n" + look + "</style>\n</head>\n<body>\n<header>" + escaped(content_.title) +
                "</header>\n";
        forEachPart(
            content_, [this](const Content_Row& row) { addFreeRow(row); },
            [this](std::span<const Content_Row> table) { addTable(table); });
        html_ += "<footer><span class=\"date\">" + escaped(content_.date) + "</span>" +
                 escaped(content_.route) + "</footer>\n</body>\n</html>\n";
        return std::move(html_);
    }

  private:
    /// In points; a report has one size for all its rows.
    [[nodiscard]] double textSize() const {
        for (const Content_Row& row : content_.rows)
            if (!row.cells.empty()) return content_.styles[row.cells.front().style].Font.Size;
        return Report_Font{}.Size;
    }

    void addFreeRow(const Content_Row& row) {
        if (row.kind == Content_Kind::Gap) return;
        html_ += row.kind == Content_Kind::Text ? "<p class=\"text\">" : "<p class=\"line\">";
        std::string between;
        for (const Content_Cell& cell : row.cells) {
            const bool label = content_.styles[cell.style].BackStyle == Back_Opaque;
            html_ += between;
            html_ += label ? "<span class=\"label\">" + escaped(cell.text) + "</span>" : escaped(cell.text);
            between = " ";
        }
        html_ += "</p>\n";
    }

    void addTable(std::span<const Content_Row> table) {
        html_ += isRuled(table) ? "<table class=\"ruled\">\n" : "<table>\n";
        for (const Content_Row& row : table)
            addTableRow(row);
        html_ += "</table>\n";
    }

    /// Whether there are rules around the cells; all rows of a table are alike in that.
    [[nodiscard]] bool isRuled(std::span<const Content_Row> table) const {
        const Content_Row& row = table.back();
        if (row.kind == Content_Kind::Heading || row.cells.empty()) return false;
        return content_.styles[row.cells.front().style].Border.LeftStyle != Border_None;
    }

    void addTableRow(const Content_Row& row) {
        const bool heading = row.kind == Content_Kind::Heading;
        html_ += "<tr>";
        for (const Content_Cell& cell : row.cells) {
            html_ += heading ? "<th>" : "<td" + cellStyle(content_.styles[cell.style]) + ">";
            html_ += escaped(cell.text);
            html_ += heading ? "</th>" : "</td>";
        }
        html_ += "</tr>\n";
    }

    const Report_Content& content_;
    std::string html_;
};

} // namespace

std::string exportHtml(const Report_Content& content) { return Html_Export(content).text(); }

} // namespace zorvane
