// SPDX-License-Identifier: MIT
#pragma once

#include "app/print_form.h"

#include <memory>
#include <string>

namespace zorvane::app {

/// "&Print Log..." of the transfer status form.
class Print_Log_Command {
  public:
    Print_Log_Command(Print_Form& mainForm, const Text_Metrics& metrics, Report_Clock clock);

    /// Prints a log after the user chose a printer; there is no preview. A report of an earlier press gives
    /// its window's rectangle to the new one and goes.
    void btnPrint_Click(const Rich_Text& RtbStatus, const std::string& logFileName);
    /// The report was closed.
    void RptLog_UnloadMe() { report_.reset(); }

    [[nodiscard]] rptPrintLog* report() const { return report_.get(); }

  private:
    Print_Form& mainForm_;
    const Text_Metrics& metrics_;
    Report_Clock clock_;
    std::unique_ptr<rptPrintLog> report_;
};

} // namespace zorvane::app
