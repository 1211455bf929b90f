// SPDX-License-Identifier: MIT
#include "app/print_log_command.h"

#include <optional>

namespace zorvane::app {

Print_Log_Command::Print_Log_Command(Print_Form& mainForm, const Text_Metrics& metrics, Report_Clock clock)
    : mainForm_(mainForm), metrics_(metrics), clock_(std::move(clock)) {}

void Print_Log_Command::btnPrint_Click(const Rich_Text& RtbStatus, const std::string& logFileName) {
    std::optional<Twips_Rect> window;
    if (report_) {
        window = report_->Window;
        report_->ActiveReport_Terminate();
    }
    report_ = std::make_unique<rptPrintLog>(metrics_, clock_);
    report_->UnloadMe = [this] { RptLog_UnloadMe(); };
    if (window) report_->Window = *window;
    report_->LogFileName = logFileName;
    report_->RichText = RtbStatus;
    report_->Run();
    constexpr bool prompt = true;
    mainForm_.printReport(*report_, prompt);
}

} // namespace zorvane::app
