// SPDX-License-Identifier: MIT
#include "reports/documents/rpt_print_kvrt.h"

#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane {

namespace {

constexpr Packed_Colour paleYellow = 0xC0FFFF;
constexpr Packed_Colour grey = 0xC0C0C0;
constexpr Packed_Colour lightGrey = 0xD0D0D0;
constexpr Packed_Colour blue = 0xFF0000;
constexpr Packed_Colour black = 0;

constexpr double designedWidth = 10635;
constexpr double headHeight = 945;
constexpr double rowHeight = 30;
constexpr double footHeight = 1020;
constexpr double headLine = 250; ///< height of the head's controls
constexpr double labelMargin = 50;
constexpr double columnMargin = 270;
constexpr double editsWidth = 1000;
constexpr double aboveHeadings = 150;

struct Head_Control {
    const std::string& className;
    const char* name;
    double left;
    double top;
    double width;
    const char* text;
};

/// Columns don't recognise the spelling RIGTH on paper.
int alignmentOf(const std::string& word) {
    const std::string upper = upperCase(word);
    if (upper == "CENTER") return Align_Center;
    if (upper == "RIGHT") return Align_Right;
    return Align_Left;
}

Report_Border headingBorder(bool last) {
    Report_Border border;
    border.LeftStyle = border.TopStyle = border.BottomStyle = Border_Solid;
    border.LeftColor = border.TopColor = border.BottomColor = black;
    if (last) {
        border.RightStyle = Border_Solid;
        border.RightColor = black;
    }
    return border;
}

Report_Border gridBorder(bool last) {
    Report_Border border;
    border.LeftStyle = border.BottomStyle = Border_Dot;
    border.LeftColor = border.BottomColor = lightGrey;
    if (last) {
        border.RightStyle = Border_Dot;
        border.RightColor = lightGrey;
    }
    return border;
}

/// `text` comes with the text of the cell before, and keeps it when no message answers.
void takeCellText(const Cell_Rec& cell, std::string& text) {
    if (!cell.Has_Messages) {
        text = cell.Value;
        return;
    }
    if (trimBlanks(cell.Value).empty() || !isNumeric(cell.Value)) return;
    const double code = Val(cell.Value);
    for (std::int32_t entry = 0; entry <= cell.Messages.upperBound(); ++entry)
        if (code == cell.Messages(entry).Code) text = cell.Messages(entry).Text;
}

} // namespace

std::vector<std::string> reportRowTexts(const Field_Rec& field, std::int32_t row) {
    std::vector<std::string> texts;
    std::string text;
    for (std::int32_t column = 1; column <= field.Columns; ++column) {
        takeCellText(field.Cells(row, column), text);
        texts.push_back(text);
    }
    return texts;
}

rptPrintKVRT::rptPrintKVRT(Document_Report_Sources sources)
    : ActiveReport(sources.metrics), sources_(std::move(sources)) {
    PrintWidth = designedWidth;
    Window.width = designedWidth;
    Caption = "Printing Report...";
    GroupHeader1.Height = headHeight;
    Detail.Height = rowHeight;
    GroupFooter1.Height = footHeight;
    designHead();
}

void rptPrintKVRT::designHead() {
    const Head_Control designed[] = {
        {labelClass, "Description", 0, 10, 1134, "Description:"},
        {labelClass, "Edits", 0, 240, 709, "Edits:"},
        {labelClass, "Comments", 2268, 240, 1134, "Comments:"},
        {fieldClass, "FldEdits", 709, 240, 992, "Yes"},
        {fieldClass, "Fldcomments", 3402, 240, 6944, "none comentaries"},
        {fieldClass, "FldDescription", 1134, 10, 9071, "Channel Setup"},
    };
    GroupHeader1.Controls.Clear();
    for (const Head_Control& design : designed) {
        Report_Control& control = GroupHeader1.Controls.Add(design.className);
        control.Name = design.name;
        control.Left = design.left;
        control.Top = design.top;
        control.Width = design.width;
        control.Height = headLine;
        control.Caption = design.text;
        control.Font.Size = 12;
        if (control.kind == Control_Kind::Label) {
            control.BackStyle = Back_Opaque;
            control.BackColor = paleYellow;
        }
    }
    GroupHeader1.Controls("FldEdits").DataField = "FldEdits";
    GroupHeader1.Controls("Fldcomments").DataField = "FldComments";
    GroupHeader1.Controls("FldDescription").DataField = "FldDescription";
}

void rptPrintKVRT::ActiveReport_DataInitialize() {
    if (Opcion <= 0) return;
    Row_Counter_ = 1;
    Detail.Controls.Clear();
    designHead(); // the heading row of the run before goes
    Fields.Clear();
    Pages.Clear();
    PRO_Arma_Reporte();
}

void rptPrintKVRT::PRO_Arma_Reporte() {
    if (Opcion < 1) return;
    fillHead();
    addHeadings();
    addRowControls();
}

void rptPrintKVRT::setFont(Report_Control& control) const {
    control.Font.Name = sources_.gridFont;
    control.Font.Size = FontSize;
}

void rptPrintKVRT::fitLabel(Report_Control& label) {
    setFont(label);
    label.Width = Text_Width_Twips(metrics(), label.Caption, FontSize, sources_.gridFont) + labelMargin;
}

void rptPrintKVRT::bindField(Report_Control& shown, const std::string& value) {
    setFont(shown);
    shown.Tag = "-1";
    Fields.Add(shown.DataField).Value = value;
}

void rptPrintKVRT::fillHead() {
    Report_Controls& head = GroupHeader1.Controls;
    const auto after = [](const Report_Control& control) { return control.Left + control.Width; };
    Report_Control& description = head("Description");
    fitLabel(description);
    Report_Control& fldDescription = head("FldDescription");
    bindField(fldDescription, field().Description);
    fldDescription.Left = after(description);
    fldDescription.Width = Window.width;
    Report_Control& edits = head("Edits");
    fitLabel(edits);
    Report_Control& fldEdits = head("FldEdits");
    bindField(fldEdits, "");
    fldEdits.Left = after(edits);
    fldEdits.Width = editsWidth;
    Report_Control& comments = head("Comments");
    fitLabel(comments);
    comments.Left = after(fldEdits);
    Report_Control& fldcomments = head("Fldcomments");
    bindField(fldcomments, "");
    fldcomments.Left = after(comments);
    fldcomments.Width = Window.width;
}

void rptPrintKVRT::addHeadings() {
    const Field_Rec& shown = field();
    const Report_Control& fldcomments = GroupHeader1.Controls("Fldcomments");
    const double top = fldcomments.Top + fldcomments.Height + aboveHeadings;
    double left = 0;
    for (std::int32_t column = 1; column <= shown.Columns; ++column) {
        Report_Control& heading = GroupHeader1.Controls.Add(fieldClass);
        setFont(heading);
        heading.Left = left;
        heading.Top = top;
        heading.VerticalAlignment = Align_Middle;
        heading.Alignment = Align_Center;
        std::int16_t width = 0;
        PRO_Ancho_Columna(column, width);
        heading.Width = width;
        heading.Tag = numberText(column);
        heading.BackStyle = Back_Opaque;
        heading.BackColor = grey;
        heading.Border = headingBorder(column == shown.Columns);
        const std::string& text = shown.Cells(0, column).Value;
        heading.Name = "ALF_" + numberText(column) + "_" + text;
        Fields.Add(heading.Name).Value = text;
        heading.DataField = heading.Name;
        left += heading.Width;
    }
    GroupHeader1.repeatFrom = top;
}

void rptPrintKVRT::addRowControls() {
    const Field_Rec& shown = field();
    double left = 0;
    for (std::int32_t column = 1; column <= shown.Columns; ++column) {
        Report_Control& cell = Detail.Controls.Add(fieldClass);
        setFont(cell);
        cell.Left = left;
        cell.VerticalAlignment = Align_Middle;
        cell.Alignment = alignmentOf(shown.Cells(0, column).Alignment);
        std::int16_t width = 0;
        PRO_Ancho_Columna(column, width);
        cell.Width = width;
        cell.Tag = numberText(column);
        if (Grid) cell.Border = gridBorder(column == shown.Columns);
        cell.DataField = "Field" + numberText(column);
        Fields.Add(cell.DataField);
        left += cell.Width;
        Detail.Height = cell.Height;
    }
}

void rptPrintKVRT::PRO_Ancho_Columna(std::int32_t column, std::int16_t& width) {
    const Field_Rec& shown = field();
    if (!ChangeLocal) {
        width = shown.Cells(0, column).Width;
        return;
    }
    const Report_Font& font = GroupHeader1.Controls("Description").Font;
    double widest = 0;
    for (std::int32_t row = 0; row <= shown.Rows; ++row) {
        const std::string text(trimBlanks(shown.Cells(row, column).Value));
        widest = std::max(widest, Text_Width_Twips(metrics(), text, font.Size, font.Name) + columnMargin);
    }
    width = toInteger(widest);
}

void rptPrintKVRT::ActiveReport_FetchData(bool& EOF_) {
    if (Opcion <= 0) return;
    const Field_Rec& shown = field();
    if (Row_Counter_ > shown.Rows) return;
    std::vector<std::string> texts = reportRowTexts(shown, Row_Counter_);
    for (Report_Control& control : Detail.Controls) {
        control.Font.Bold = Row_Counter_ == 0;
        const std::int32_t column = longValue(control.Tag);
        if (Row_Counter_ > 0 && shown.Cells(0, column).Modifiable) control.ForeColor = blue;
        Fields.Item(control.DataField).Value = std::move(texts.at(static_cast<std::size_t>(column - 1)));
    }
    ++Row_Counter_;
    EOF_ = false;
}

} // namespace zorvane
