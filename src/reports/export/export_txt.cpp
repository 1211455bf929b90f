// SPDX-License-Identifier: MIT
#include "reports/export/export_txt.h"

#include "values/code_page.h"

#include <algorithm>

namespace zorvane {

namespace {

constexpr std::size_t betweenColumns = 2;

std::string inOneLine(std::string text) {
    const auto isControl = [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code < 0x20 || code == 0x7F;
    };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

class Text_Export {
  public:
    explicit Text_Export(const Report_Content& content) : content_(content) {}

    std::string text() && {
        addLine(inOneLine(content_.title));
        addLine("");
        forEachPart(
            content_, [this](const Content_Row& row) { addFreeRow(row); },
            [this](std::span<const Content_Row> table) { addTable(table); });
        addLine("");
        addLine(inOneLine(content_.route + "  " + content_.date));
        return toUtf8(text_);
    }

  private:
    void addLine(std::string line) {
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        text_ += line + "\r\n";
    }

    void addFreeRow(const Content_Row& row) {
        std::string line;
        for (const Content_Cell& cell : row.cells)
            line += (line.empty() ? "" : " ") + inOneLine(cell.text);
        addLine(std::move(line));
    }

    void addTable(std::span<const Content_Row> table) {
        const std::vector<std::size_t> widths = columnWidths(table);
        for (const Content_Row& row : table) {
            std::string line;
            for (std::size_t column = 0; column < row.cells.size(); ++column)
                addCell(line, row.cells[column], row.kind, widths[column]);
            addLine(std::move(line));
            if (row.kind == Content_Kind::Heading) addLine(ruleUnder(widths));
        }
    }

    void addCell(std::string& line, const Content_Cell& cell, Content_Kind kind, std::size_t width) const {
        const std::size_t room = width - cell.text.size();
        const int alignment =
            kind == Content_Kind::Heading ? Align_Left : content_.styles[cell.style].Alignment;
        const std::size_t before = alignment == Align_Right ? room : alignment == Align_Center ? room / 2 : 0;
        line += std::string(before, ' ') + inOneLine(cell.text) +
                std::string(room - before + betweenColumns, ' ');
    }

    static std::vector<std::size_t> columnWidths(std::span<const Content_Row> table) {
        std::vector<std::size_t> widths;
        for (const Content_Row& row : table) {
            widths.resize(std::max(widths.size(), row.cells.size()));
            for (std::size_t column = 0; column < row.cells.size(); ++column)
                widths[column] = std::max(widths[column], row.cells[column].text.size());
        }
        return widths;
    }

    static std::string ruleUnder(const std::vector<std::size_t>& widths) {
        std::string rule;
        for (const std::size_t width : widths)
            rule += std::string(width, '-') + std::string(betweenColumns, ' ');
        return rule;
    }

    const Report_Content& content_;
    std::string text_;
};

} // namespace

std::string exportTxt(const Report_Content& content) { return Text_Export(content).text(); }

} // namespace zorvane
