// SPDX-License-Identifier: MIT
#include "ctl/text/text_table.h"

#include <algorithm>
#include <ostream>

namespace zorvane::ctl {

namespace {

/// Characters, not bytes: those that continue a character don't count.
std::size_t shownWidth(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void printRow(std::ostream& out, const std::vector<std::string>& row,
              const std::vector<std::size_t>& widths) {
    std::string line;
    std::size_t due = 0; // blanks before the next text, so that no line ends in one
    for (std::size_t c = 0; c < row.size(); ++c) {
        if (!row[c].empty()) {
            line.append(due, ' ');
            line += row[c];
            due = 0;
        }
        due += widths[c] - shownWidth(row[c]) + 2;
    }
    out << line << '\n';
}

} // namespace

void Text_Table::print(std::ostream& out, std::size_t indent) const {
    std::vector<std::size_t> widths;
    for (const auto& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()), 0);
        for (std::size_t c = 0; c < row.size(); ++c)
            widths[c] = std::max(widths[c], shownWidth(row[c]));
    }
    for (const auto& row : rows_) {
        out << std::string(indent, ' ');
        printRow(out, row, widths);
    }
}

} // namespace zorvane::ctl
