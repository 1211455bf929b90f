// SPDX-License-Identifier: MIT
#include "reports/documents/main_rep_kvrt.h"

#include "reports/bands/page_bands.h"
#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

constexpr int hourglass = 11;

std::string subreportName(std::int32_t number) { return "SubDinamycRpt" + numberText(number); }

} // namespace

MainRepKVRT::MainRepKVRT(Document_Report_Sources sources, Report_Clock clock, Main_Report_Host& host)
    : ActiveReport(sources.metrics), sources_(std::move(sources)), clock_(std::move(clock)), host_(host) {
    PrintWidth = 9135;
    Caption = "Preview Print Page";
    designHeader(PageHeader, {735, "Zorvane", 1276, 8.5, 8.5});
    designFooter(PageFooter, 8.5);
    Detail.Height = 315;
    ActiveReport_Initialize();
}

void MainRepKVRT::ActiveReport_Initialize() {
    Report_Tool& setup = Tools.Insert(1, "&Setup...");
    setup.Tooltip = "Page setup";
    setup.picture = pageSetupPicture;
    Tools.Insert(2, "&Export...").Tooltip = "Export Report";
    Tools.Insert(3, "&Refresh").Tooltip = "Refresh Report";
    Tools.Insert(4, "Font Size...").Tooltip = "Font Size";
}

void MainRepKVRT::ActiveReport_ReportStart() {
    MousePointer = hourglass;
    host_.showBusy();
}

void MainRepKVRT::ActiveReport_ReportEnd() {
    MousePointer = 0;
    host_.endBusy();
    if (EndOfRun) EndOfRun();
}

void MainRepKVRT::ActiveReport_DataInitialize() {
    const Declara_Zorvane& document = sources_.document;
    routeText_ = routeText(document.File_Folder + document.File_Stem + "." + document.File_Extension);
    dateText_ = dateText(clock_());
    Detail.Controls.Clear();
    if (OnePage) {
        addSubreport(Opcion);
    } else {
        for (std::int32_t number = 1; number <= document.Field_Count; ++number)
            addSubreport(number);
        pageCounter_ = 0;
    }
    PageFooter.Controls("Separadora").X2 = ruleEnd(PageFooter);
    PageHeader.Controls("Separadora2").X2 = ruleEnd(PageFooter);
}

void MainRepKVRT::addSubreport(std::int32_t number) {
    auto object = std::make_shared<rptPrintKVRT>(sources_);
    object->Opcion = toInteger(number);
    object->Grid = HaveGrid;
    object->PrintWidth = PrintWidth;
    object->FontSize = FontSize;
    object->ChangeLocal = fontChanged_;
    Report_Control& control = Detail.Controls.Add(subreportClass);
    control.Tag = "SUBREPORT";
    control.Name = subreportName(number);
    control.CanGrow = true;
    control.CanShrink = true;
    control.Height = Window.height;
    control.Left = 0;
    control.Top = 0;
    control.Visible = false;
    control.Width = PrintWidth;
    control.object = std::move(object);
}

void MainRepKVRT::ActiveReport_FetchData(bool& EOF_) {
    if (OnePage) return;
    for (std::int32_t number = 1; number <= sources_.document.Field_Count; ++number)
        Detail.Controls(subreportName(number)).Visible = false;
    if (pageCounter_ >= sources_.document.Field_Count) return;
    EOF_ = false;
    ++pageCounter_;
}

void MainRepKVRT::Detail_Format() {
    // The sub-report of field n is the one whose number is n, so the search by number ends at its name.
    const std::int32_t number = OnePage ? Opcion : pageCounter_;
    TOC.Add(sources_.document.Fields(number).Description);
    Detail.Controls(subreportName(number)).Visible = true;
}

void MainRepKVRT::PageHeader_Format() { PageHeader.Controls("Label14").Caption = pageText(PageNumber()); }

void MainRepKVRT::PageFooter_Format() {
    PageFooter.Controls("lbldate").Caption = dateText_;
    PageFooter.Controls("lblRoute").Caption = upperCase(routeText_);
}

void MainRepKVRT::ActiveReport_ToolbarClick(const Report_Tool& tool) {
    const std::string tip = upperCase(tool.Tooltip);
    if (tip == "PAGE SETUP") {
        if (ConfigurePage) ConfigurePage();
    } else if (tip == "EXPORT REPORT") {
        host_.exportReport(*this);
    } else if (tip == "REFRESH REPORT") {
        if (Refresh) Refresh();
    } else if (tip == "FONT SIZE") {
        host_.showFontDialog(*this);
    }
}

void MainRepKVRT::FontSizeDialog_ChangeFont(double size) {
    FontSize = size;
    host_.dropFontDialog(*this);
    fontChanged_ = true;
    Restart();
}

void MainRepKVRT::ActiveReport_Terminate() {
    ignoringFailure([this] { host_.SaveConfig(Window); });
    const std::function<void()> unload = UnloadMe; // the handler may destroy the report
    if (unload) unload();
}

} // namespace zorvane
