// SPDX-License-Identifier: MIT
#include "fuzz/fuzz_report.h"

#include "fuzz/split.h"
#include "values/font_sizes.h"
#include "values/numbers.h"

#include <array>
#include <cmath>

namespace zorvane::fuzz {

namespace {

Text_Style styleOf(unsigned char look) {
    Text_Style style;
    style.Alignment = look % 3;
    style.Font.Size = fontSizes.at(look % fontSizes.size()).applied;
    style.Font.Bold = (look & 1U) != 0;
    if ((look & 2U) != 0) style.Font.Name = "Grid {Font};";
    if ((look & 4U) != 0) style.BackStyle = Back_Opaque;
    if ((look & 8U) != 0) style.ForeColor = look * 0x010305U;
    if ((look & 16U) != 0) style.BackColor = look * 0x050301U;
    if ((look & 32U) != 0) style.Border.TopStyle = style.Border.LeftStyle = Border_Solid;
    if ((look & 64U) != 0) style.Border.RightStyle = style.Border.BottomStyle = Border_Dot;
    return style;
}

Content_Kind kindOf(char letter) {
    switch (letter) {
    case 'L':
        return Content_Kind::Line;
    case 'H':
        return Content_Kind::Heading;
    case 'T':
        return Content_Kind::Text;
    case 'G':
        return Content_Kind::Gap;
    default:
        return Content_Kind::Row;
    }
}

void takeMeasures(std::string_view text, Page_Settings& paper) {
    const std::array members = {&Page_Settings::PaperWidth,  &Page_Settings::PaperHeight,
                                &Page_Settings::LeftMargin,  &Page_Settings::TopMargin,
                                &Page_Settings::RightMargin, &Page_Settings::BottomMargin};
    const std::vector<std::string> numbers = split(text, ',');
    for (std::size_t index = 0; index < std::min(members.size(), numbers.size()); ++index) {
        const double value = Val(numbers[index]);
        if (isNumeric(numbers[index]) && std::isfinite(value)) paper.*members.at(index) = value;
    }
}

Content_Row rowOf(std::string_view text, std::string_view looks, Style_Table& styles) {
    Content_Row row{kindOf(text.empty() ? 'R' : text.front()), {}};
    if (row.kind == Content_Kind::Gap) return row;
    double left = 0;
    for (std::string& cell : split(text.substr(text.empty() ? 0 : 1), textEnd)) {
        const unsigned char look =
            looks.empty() ? 0 : static_cast<unsigned char>(looks[row.cells.size() % looks.size()]);
        const double width = 20.0 * look - 200; // a template may make columns of any width
        row.cells.push_back({std::move(cell), left, width, styles.indexOf(styleOf(look))});
        left += width;
        if (row.kind == Content_Kind::Text) break;
    }
    return row;
}

} // namespace

Report_Content reportFrom(std::string_view input) {
    Report_Content content;
    const std::vector<std::string> rows = split(input, rowEnd);
    std::vector<std::string> settings = split(rows.front(), textEnd);
    settings.resize(5);
    content.title = settings[0];
    content.route = settings[1];
    content.date = settings[2];
    takeMeasures(settings[4], content.paper);
    for (std::size_t index = 1; index < rows.size(); ++index)
        content.rows.push_back(rowOf(rows[index], settings[3], content.styles));
    return content;
}

} // namespace zorvane::fuzz
