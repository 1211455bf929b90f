// SPDX-License-Identifier: MIT
#include "reports/documents/rpt_print_log.h"

#include "reports/bands/page_bands.h"

namespace zorvane {

rptPrintLog::rptPrintLog(const Text_Metrics& metrics, Report_Clock clock)
    : ActiveReport(metrics), clock_(std::move(clock)) {
    PrintWidth = 9225;
    designHeader(PageHeader, {525, "Zorvane   log of communication error.", 4677, 11.5, 10});
    designFooter(PageFooter, 10);
    Detail.Height = 630;
    Report_Control& log = Detail.Controls.Add(richTextClass);
    log.Name = "RtbPrint";
    log.Width = 9071;
    log.Height = 567;
    log.Font.Name = "MS Sans Serif";
}

void rptPrintLog::ActiveReport_DataInitialize() {
    Detail.Controls("RtbPrint").RichText = RichText;
    routeText_ = routeText(LogFileName);
    dateText_ = dateText(clock_());
    PageFooter.Controls("Separadora").X2 = ruleEnd(PageFooter);
}

void rptPrintLog::PageHeader_Format() { PageHeader.Controls("Label14").Caption = pageText(PageNumber()); }

void rptPrintLog::PageFooter_Format() {
    PageFooter.Controls("lbldate").Caption = dateText_;
    PageFooter.Controls("lblRoute").Caption = routeText_;
}

void rptPrintLog::ActiveReport_Terminate() {
    const std::function<void()> unload = UnloadMe; // the handler may destroy the report
    if (unload) unload();
}

} // namespace zorvane
