// SPDX-License-Identifier: MIT
// Any bytes as a report in plain text: each row is one line, and its texts stand in it in their order.

#include "fuzz/fuzz_report.h"
#include "fuzz/require.h"
#include "fuzz/split.h"
#include "reports/export/export_txt.h"
#include "values/code_page.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

/// A text as a line holds it.
std::string shown(std::string text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char character) { return static_cast<unsigned char>(character) < 0x20 || character == 0x7F; },
        ' ');
    return toUtf8(text);
}

/// The lines of the file, in UTF-8. Nothing but their ends is a control character.
std::vector<std::string> linesOf(const std::string& file) {
    std::vector<std::string> lines = fuzz::split(file, '\n');
    require(lines.back().empty(), "the last line is ended");
    lines.pop_back();
    for (std::string& line : lines) {
        require(!line.empty() && line.back() == '\r', "a line ends in CR LF");
        line.pop_back();
        require(std::none_of(line.begin(), line.end(),
                             [](char character) { return static_cast<unsigned char>(character) < 0x20; }),
                "a line has no control character");
        require(line.empty() || line.back() != ' ', "a line has no blanks at its end");
    }
    return lines;
}

/// The line may be shorter by blanks at its end.
void checkRow(const std::string& line, const std::vector<std::string>& texts) {
    std::size_t from = 0;
    std::string room = line;
    for (const std::string& text : texts)
        room.append(text.size(), ' ');
    for (const std::string& text : texts) {
        const std::size_t place = room.find(shown(text), from);
        require(place != std::string::npos, "a row has its texts in their order");
        from = place + shown(text).size();
    }
}

std::vector<std::string> textsOf(const Content_Row& row) {
    std::vector<std::string> texts;
    for (const Content_Cell& cell : row.cells)
        texts.push_back(cell.text);
    return texts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Report_Content content = fuzz::reportFrom(std::string(data, data + size));
    const std::vector<std::string> lines = linesOf(exportTxt(content));
    std::size_t line = 0;
    const auto next = [&]() -> const std::string& {
        require(line < lines.size(), "every row has a line");
        return lines[line++];
    };
    checkRow(next(), {content.title});
    require(next().empty(), "an empty line follows the title");
    for (const Content_Row& row : content.rows) {
        checkRow(next(), textsOf(row));
        if (row.kind == Content_Kind::Heading)
            require(next().find_first_not_of("- ") == std::string::npos, "a heading is ruled off");
    }
    require(next().empty(), "an empty line follows the rows");
    checkRow(next(), {content.route, content.date});
    require(line == lines.size(), "no other line is there");
    return 0;
}
