// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/active_report.h"
#include "reports/documents/footer_texts.h"

#include <functional>
#include <string>

namespace zorvane {

/// The monitor log of a transfer: one rich text that flows over the pages.
class rptPrintLog : public ActiveReport {
  public:
    rptPrintLog(const Text_Metrics& metrics, Report_Clock clock);

    Rich_Text RichText;      ///< the log
    std::string LogFileName; ///< shown in the footer
    std::function<void()> UnloadMe;

    /// The report goes: raises `UnloadMe`, whose handler may destroy it.
    void ActiveReport_Terminate();

  protected:
    void ActiveReport_DataInitialize() override;
    void PageHeader_Format() override;
    void PageFooter_Format() override;

  private:
    Report_Clock clock_;
    std::string routeText_;
    std::string dateText_;
};

} // namespace zorvane
