// SPDX-License-Identifier: MIT
#include "reports/bands/active_report.h"

#include "reports/bands/line_wrap.h"
#include "reports/bands/page_layout.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

/// The headings of a head, to stand on top of a further page.
std::shared_ptr<const Printed_Band> headingsOf(const Printed_Band& head) {
    if (!head.repeatFrom) return nullptr;
    auto again = std::make_shared<Printed_Band>();
    again->role = Band_Role::Head;
    for (Printed_Text text : head.texts) {
        if (text.top < *head.repeatFrom) continue;
        text.top -= *head.repeatFrom;
        again->height = std::max(again->height, text.top + text.height);
        again->texts.push_back(std::move(text));
    }
    return again;
}

/// Whether the control stands in the band as it is: sub-reports and rich text make bands of their own.
bool standsInBand(const Report_Control& control) {
    return control.Visible && control.kind != Control_Kind::Subreport &&
           control.kind != Control_Kind::RichText;
}

} // namespace

Report_Tool& Report_Tools::Insert(std::size_t index, const std::string& caption) {
    if (index < 1 || index > tools_.size() + 1) throw Run_Time_Failure(Failure::Subscript);
    const auto place = tools_.begin() + static_cast<std::ptrdiff_t>(index - 1);
    return *tools_.insert(place, Report_Tool{caption, "", 0, true, true});
}

Report_Tool& Report_Tools::Item(std::size_t index) {
    if (index < 1 || index > tools_.size()) throw Run_Time_Failure(Failure::Subscript);
    return tools_[index - 1];
}

void ActiveReport::Run() {
    ActiveReport_ReportStart();
    try {
        layOut();
    } catch (...) {
        ActiveReport_ReportEnd();
        throw;
    }
    ActiveReport_ReportEnd();
    pagesChanged();
}

void ActiveReport::layOut() {
    const Page_Band header{PageHeader.Height,
                           [this](std::int32_t page, Style_Table& styles) { return headerOf(page, styles); }};
    const Page_Band footer{PageFooter.Height,
                           [this](std::int32_t page, Style_Table& styles) { return footerOf(page, styles); }};
    Printed_Report printed = runWithoutPages();
    Pages.document =
        layoutPages(std::move(printed), PageSettings, header, footer, cancelled_ ? Keeps_On{} : watch());
}

Keeps_On ActiveReport::watch() {
    return [this] {
        if (!cancelled_) cancelled_ = !goesOn();
        return !cancelled_;
    };
}

void ActiveReport::Restart() {
    Pages.Clear();
    Run();
}

Printed_Report ActiveReport::runWithoutPages() {
    Printed_Report report;
    cancelled_ = false;
    printInto(report, 0, watch());
    return report;
}

Printed_Band ActiveReport::headerOf(std::int32_t page, Style_Table& styles) {
    pageNumber_ = page;
    PageHeader_Format();
    return printed(PageHeader, Band_Role::Head, 0, styles);
}

Printed_Band ActiveReport::footerOf(std::int32_t page, Style_Table& styles) {
    pageNumber_ = page;
    PageFooter_Format();
    return printed(PageFooter, Band_Role::Foot, 0, styles);
}

void ActiveReport::printInto(Printed_Report& report, double left, const Keeps_On& keepsOn) {
    TOC.Clear();
    ActiveReport_DataInitialize();
    std::shared_ptr<const Printed_Band> again;
    const bool grouped = !Fields.empty();
    if (grouped) {
        report.bands.push_back(printed(GroupHeader1, Band_Role::Head, left, report.styles));
        again = headingsOf(report.bands.back());
    }
    bool ownPass = !grouped && Detail.Controls.Count() > 0;
    while (keepsOn()) {
        bool end = true;
        ActiveReport_FetchData(end);
        if (end && !ownPass) break;
        Detail_Format();
        printPass(report, left, again, keepsOn);
        ownPass = false;
        if (end) break;
    }
    if (grouped) report.bands.push_back(printed(GroupFooter1, Band_Role::Foot, left, report.styles));
}

void ActiveReport::printPass(Printed_Report& report, double left,
                             const std::shared_ptr<const Printed_Band>& again, const Keeps_On& keepsOn) {
    const std::size_t first = report.bands.size();
    const auto& controls = Detail.Controls;
    if (std::any_of(controls.begin(), controls.end(), standsInBand)) {
        report.bands.push_back(printed(Detail, Band_Role::Row, left, report.styles));
        report.bands.back().again = again;
    }
    for (const Report_Control& control : controls) {
        if (control.Visible && control.object)
            control.object->printInto(report, left + control.Left, keepsOn);
        if (control.Visible && control.kind == Control_Kind::RichText)
            printRichText(report, control, left + control.Left);
    }
    if (report.bands.size() == first)
        report.bands.push_back({Band_Role::Row, Detail.Height, {}, {}, {}, {}, {}});
    if (!TOC.titles().empty()) report.bands[first].contentsTitle = TOC.titles().back();
}

void ActiveReport::printRichText(Printed_Report& report, const Report_Control& control, double left) const {
    Text_Style style;
    style.Font = control.RichText.font;
    style.ForeColor = control.RichText.ForeColor;
    const std::size_t index = report.styles.indexOf(style);
    const double height = metrics_.lineHeight(style.Font);
    const double room = control.Width - 2 * textInset;
    for (std::string& line : wrappedLines(metrics_, control.RichText.text, style.Font, room)) {
        Printed_Band band{Band_Role::Text, height, {}, {}, {}, {}, {}};
        band.texts.push_back({left, 0, control.Width, height, index, std::move(line), false});
        report.bands.push_back(std::move(band));
    }
}

Printed_Band ActiveReport::printed(const Report_Band& band, Band_Role role, double left,
                                   Style_Table& styles) {
    Printed_Band made{role, band.Height, {}, {}, band.repeatFrom, {}, {}};
    for (const Report_Control& control : band.Controls) {
        if (!standsInBand(control)) continue;
        if (control.kind == Control_Kind::Line) {
            made.lines.push_back({left + control.X1, control.Y1, left + control.X2, control.Y2});
            continue;
        }
        std::string text = textOf(control);
        const double height = heightOf(control, text);
        made.height = std::max(made.height, control.Top + height);
        made.texts.push_back({left + control.Left, control.Top, control.Width, height,
                              styles.indexOf(control), std::move(text), control.totalPages});
    }
    return made;
}

std::string ActiveReport::textOf(const Report_Control& control) {
    if (control.DataField.empty() || !Fields.has(control.DataField)) return control.Caption;
    return Fields.Item(control.DataField).Value;
}

double ActiveReport::heightOf(const Report_Control& control, const std::string& text) const {
    const bool grows = control.kind == Control_Kind::Field && control.CanGrow && !text.empty();
    return grows ? std::max(control.Height, metrics_.lineHeight(control.Font)) : control.Height;
}

} // namespace zorvane
