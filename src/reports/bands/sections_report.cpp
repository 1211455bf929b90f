// SPDX-License-Identifier: MIT
#include "reports/bands/sections_report.h"

#include "reports/bands/line_wrap.h"
#include "reports/bands/page_bands.h"
#include "values/numbers.h"

#include <algorithm>
#include <memory>

namespace zorvane {

namespace {

constexpr double paperWidth = 11906; ///< A4
constexpr double paperHeight = 16838;
constexpr double margin = 1134; ///< 2 cm
constexpr double printWidth = paperWidth - 2 * margin;
constexpr double textSize = 8;
constexpr double titleSize = 10;
constexpr double titleHeight = 300;
constexpr double rowHeight = 235;
constexpr double boxHeight = 750;
constexpr double gapHeight = 180;
constexpr Packed_Colour headingGround = 0xE0E0E0;
constexpr Packed_Colour rule = 0xB0B0B0;

Report_Border lines(Packed_Colour colour) {
    Report_Border border;
    border.LeftStyle = border.RightStyle = border.TopStyle = border.BottomStyle = Border_Solid;
    border.LeftColor = border.RightColor = border.TopColor = border.BottomColor = colour;
    return border;
}

std::string fieldName(std::size_t column) { return "Column" + std::to_string(column); }

/// One section: its title, the headings, and a pass for each line of each row.
class Section_Report : public ActiveReport {
  public:
    Section_Report(const Text_Metrics& metrics, Table_Section section);

  protected:
    void ActiveReport_DataInitialize() override { next_ = 0; }
    void ActiveReport_FetchData(bool& EOF_) override;

  private:
    void addTitle();
    void addHeadings();
    void addCells();
    void addLines(const std::vector<std::string>& row);
    [[nodiscard]] double widthOf(std::size_t column) const {
        return printWidth * section_.columns[column].percent / 100;
    }

    Table_Section section_;
    std::vector<std::vector<std::string>> lines_; ///< of the rows, each as wide as its column
    std::size_t next_ = 0;
};

Section_Report::Section_Report(const Text_Metrics& metrics, Table_Section section)
    : ActiveReport(metrics), section_(std::move(section)) {
    PrintWidth = printWidth;
    GroupFooter1.Height = gapHeight;
    addTitle();
    if (section_.headings) addHeadings();
    addCells();
    for (const auto& row : section_.rows)
        addLines(row);
}

void Section_Report::addTitle() {
    Report_Control& title = GroupHeader1.Controls.Add(labelClass);
    title.Name = "Title";
    title.Caption = section_.title;
    title.Width = printWidth;
    title.Height = titleHeight;
    title.Font.Size = titleSize;
    title.Font.Bold = true;
    GroupHeader1.Height = titleHeight;
}

void Section_Report::addHeadings() {
    double left = 0;
    for (std::size_t column = 0; column < section_.columns.size(); ++column) {
        Report_Control& heading = GroupHeader1.Controls.Add(labelClass);
        heading.Name = "Heading" + std::to_string(column);
        heading.Caption = section_.columns[column].heading;
        heading.Left = left;
        heading.Top = titleHeight;
        heading.Width = widthOf(column);
        heading.Height = rowHeight;
        heading.Font.Size = textSize;
        heading.VerticalAlignment = Align_Middle;
        heading.Alignment = section_.columns[column].right ? Align_Right : Align_Left;
        heading.BackStyle = Back_Opaque;
        heading.BackColor = headingGround;
        heading.Border = lines(rule);
        left += heading.Width;
    }
    GroupHeader1.Height = titleHeight + rowHeight;
    GroupHeader1.repeatFrom = titleHeight;
}

void Section_Report::addCells() {
    double left = 0;
    for (std::size_t column = 0; column < section_.columns.size(); ++column) {
        Report_Control& cell = Detail.Controls.Add(fieldClass);
        cell.Name = cell.DataField = fieldName(column);
        cell.Left = left;
        cell.Width = widthOf(column);
        cell.Height = section_.boxes ? boxHeight : rowHeight;
        cell.Font.Size = textSize;
        cell.Alignment = section_.columns[column].right ? Align_Right : Align_Left;
        cell.VerticalAlignment = Align_Middle;
        if (section_.boxes) cell.Border = lines(rule);
        Fields.Add(cell.DataField);
        left += cell.Width;
    }
    Detail.Height = section_.boxes ? boxHeight : rowHeight;
}

/// A text too wide for its column goes on in the next line.
void Section_Report::addLines(const std::vector<std::string>& row) {
    const Report_Font& font = Detail.Controls(0).Font;
    std::vector<std::vector<std::string>> wrapped;
    std::size_t count = 1;
    for (std::size_t column = 0; column < row.size(); ++column) {
        wrapped.push_back(wrappedLines(metrics(), row[column], font, widthOf(column) - 2 * textInset));
        count = std::max(count, wrapped.back().size());
    }
    for (std::size_t line = 0; line < count; ++line) {
        lines_.emplace_back();
        for (const std::vector<std::string>& cell : wrapped)
            lines_.back().push_back(line < cell.size() ? cell[line] : "");
    }
}

void Section_Report::ActiveReport_FetchData(bool& EOF_) {
    if (next_ >= lines_.size()) return;
    const std::vector<std::string>& line = lines_[next_++];
    for (std::size_t column = 0; column < line.size(); ++column)
        Fields.Item(fieldName(column)).Value = line[column];
    EOF_ = false;
}

} // namespace

Sections_Report::Sections_Report(const Text_Metrics& metrics, const Sections_Texts& texts,
                                 std::vector<Table_Section> sections)
    : ActiveReport(metrics) {
    PageSettings = {margin, margin, margin, margin, 0, false, paperWidth, paperHeight};
    PrintWidth = printWidth;
    Caption = texts.caption;
    designHeader(PageHeader, {525, Caption, 7000, 8.5, 8.5});
    designFooter(PageFooter, 8.5);
    PageHeader.Controls("Separadora2").X2 = PageFooter.Controls("Separadora").X2 = printWidth;
    PageFooter.Controls("lblRoute").Caption = texts.footLeft;
    PageFooter.Controls("lbldate").Caption = texts.footRight;
    Detail.Height = 0;
    for (Table_Section& section : sections) {
        titles_.push_back(section.title);
        Report_Control& control = Detail.Controls.Add(subreportClass);
        control.Width = printWidth;
        control.Height = 0;
        control.object = std::make_shared<Section_Report>(metrics, std::move(section));
    }
}

void Sections_Report::ActiveReport_FetchData(bool& EOF_) {
    if (next_ >= titles_.size()) return;
    for (std::size_t section = 0; section < titles_.size(); ++section)
        Detail.Controls(static_cast<std::int32_t>(section)).Visible = section == next_;
    EOF_ = false;
}

void Sections_Report::Detail_Format() { TOC.Add(titles_.at(next_++)); }

void Sections_Report::PageHeader_Format() {
    PageHeader.Controls("Label14").Caption = "Page " + numberText(PageNumber()) + " of ";
}

} // namespace zorvane
