// SPDX-License-Identifier: MIT
#include "reports/bands/report_content.h"

#include <algorithm>

namespace zorvane {

namespace {

Content_Kind kindOf(const Printed_Band& band, double top) {
    if (band.role == Band_Role::Text) return Content_Kind::Text;
    if (band.role == Band_Role::Head)
        return band.repeatFrom && top >= *band.repeatFrom ? Content_Kind::Heading : Content_Kind::Line;
    return Content_Kind::Row;
}

/// From top to bottom and from left to right; a table's columns in their order, even where one of negative
/// width lets the next one stand before it.
std::vector<const Printed_Text*> inReadingOrder(const Printed_Band& band) {
    std::vector<const Printed_Text*> texts;
    for (const Printed_Text& text : band.texts)
        texts.push_back(&text);
    std::stable_sort(texts.begin(), texts.end(), [&](const Printed_Text* one, const Printed_Text* other) {
        if (one->top != other->top) return one->top < other->top;
        return kindOf(band, one->top) == Content_Kind::Line && one->left < other->left;
    });
    return texts;
}

void addRows(std::vector<Content_Row>& rows, const Printed_Band& band) {
    const Printed_Text* last = nullptr;
    for (const Printed_Text* text : inReadingOrder(band)) {
        if (text->width == 0) continue; // a hidden column
        if (!last || last->top != text->top) rows.push_back({kindOf(band, text->top), {}});
        rows.back().cells.push_back({text->text, text->left, text->width, text->style});
        last = text;
    }
    if (band.role == Band_Role::Foot) rows.push_back({Content_Kind::Gap, {}});
}

const Report_Control* findControl(const Report_Band& band, const std::string& name) {
    const auto found = std::find_if(band.Controls.begin(), band.Controls.end(),
                                    [&](const Report_Control& control) { return control.Name == name; });
    return found == band.Controls.end() ? nullptr : &*found;
}

std::string captionOf(const Report_Band& band, const std::string& name) {
    const Report_Control* control = findControl(band, name);
    return control ? control->Caption : "";
}

bool isTableRow(const Content_Row& row) {
    return row.kind == Content_Kind::Heading || row.kind == Content_Kind::Row;
}

} // namespace

Report_Content contentOf(const Printed_Report& printed) {
    Report_Content content;
    content.styles = printed.styles;
    for (const Printed_Band& band : printed.bands)
        addRows(content.rows, band);
    while (!content.rows.empty() && content.rows.back().kind == Content_Kind::Gap)
        content.rows.pop_back();
    return content;
}

Report_Content contentOf(ActiveReport& report) {
    Printed_Report printed = report.runWithoutPages();
    static_cast<void>(report.headerOf(1, printed.styles));
    static_cast<void>(report.footerOf(1, printed.styles));
    Report_Content content = contentOf(printed);
    content.paper = report.PageSettings;
    content.title = captionOf(report.PageHeader, "Label15");
    content.route = captionOf(report.PageFooter, "lblRoute");
    content.date = captionOf(report.PageFooter, "lbldate");
    return content;
}

std::span<const Content_Row> tableAt(const Report_Content& content, std::size_t first) {
    const std::span<const Content_Row> rest = std::span(content.rows).subspan(first);
    if (rest.empty() || !isTableRow(rest.front())) return {};
    std::size_t length = 1;
    while (length < rest.size() && rest[length].kind == Content_Kind::Row)
        ++length;
    return rest.first(length);
}

} // namespace zorvane
