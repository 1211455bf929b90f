// SPDX-License-Identifier: MIT
#include "reports/bands/page_bands.h"

namespace zorvane {

namespace {

constexpr double lineHeight = 283;
constexpr double paperRule = 9071;
constexpr double footerHeight = 360;

struct Text_Design {
    const char* name;
    double left;
    double width;
    double size;
    int alignment = Align_Left;
};

Report_Control& addText(Report_Band& band, const std::string& className, const Text_Design& design) {
    Report_Control& control = band.Controls.Add(className);
    control.Name = design.name;
    control.Left = design.left;
    control.Width = design.width;
    control.Height = lineHeight;
    control.Font.Size = design.size;
    control.Alignment = design.alignment;
    return control;
}

void addRule(Report_Band& band, const char* name, double y, double x2) {
    Report_Control& rule = band.Controls.Add(lineClass);
    rule.Name = name;
    rule.Y1 = rule.Y2 = y;
    rule.X2 = x2;
}

} // namespace

void designHeader(Report_Band& band, const Page_Header_Design& design) {
    band.Height = design.height;
    addText(band, labelClass, {"Label14", 7512, 1134, design.pageSize, Align_Right});
    addText(band, fieldClass, {"Field1", 8646, 425, design.pageSize}).totalPages = true;
    addText(band, labelClass, {"Label15", 0, design.titleWidth, design.titleSize}).Caption = design.title;
    addRule(band, "Separadora2", lineHeight, paperRule);
}

void designFooter(Report_Band& band, double size) {
    band.Height = footerHeight;
    addText(band, labelClass, {"lbldate", 6803, 2268, size, Align_Right});
    addText(band, labelClass, {"lblRoute", 0, 6520, size});
    addRule(band, "Separadora", 0, 7087);
}

double ruleEnd(Report_Band& footer) {
    const Report_Control& date = footer.Controls("lbldate");
    return date.Left + date.Width + 20;
}

} // namespace zorvane
