// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"
#include "reports/bands/page_layout.h"
#include "reports/bands/page_settings.h"
#include "reports/bands/printed_report.h"
#include "reports/bands/report_band.h"
#include "reports/bands/report_fields.h"
#include "reports/bands/text_metrics.h"
#include "values/twips.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// A tool of the preview's tool bar.
struct Report_Tool {
    std::string Caption;
    std::string Tooltip;
    int picture = 0; ///< number of the picture, 0 for none
    bool Visible = true;
    bool Enabled = true;
};

class Report_Tools {
  public:
    /// A tool at that place, from 1. A place that isn't there is failure 9.
    Report_Tool& Insert(std::size_t index, const std::string& caption);
    [[nodiscard]] Report_Tool& Item(std::size_t index);
    [[nodiscard]] std::size_t Count() const { return tools_.size(); }

  private:
    std::vector<Report_Tool> tools_;
};

class Report_Contents {
  public:
    void Add(const std::string& title) { titles_.push_back(title); }
    void Clear() { titles_.clear(); }
    [[nodiscard]] const std::vector<std::string>& titles() const { return titles_; }

  private:
    std::vector<std::string> titles_;
};

/// The pages of the last run.
struct Report_Pages {
    Page_Document document;

    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(document.pages.size()); }
    void Clear() { document = {}; }
};

/// A report: bands with controls, filled and printed pass by pass. A run calls, in this order, `ReportStart`,
/// `DataInitialize`, then for each pass `FetchData` and `Detail_Format`, then for each page
/// `PageHeader_Format` and `PageFooter_Format`, at last `ReportEnd`. A fetch makes a pass by setting EOF to
/// false; a report without bound fields that has something in its detail band makes one pass of its own when
/// its first fetch leaves EOF as it was. The group's header and footer are printed around the passes of a
/// report with bound fields, once.
class ActiveReport {
  public:
    explicit ActiveReport(const Text_Metrics& metrics) : metrics_(metrics) {}
    virtual ~ActiveReport() = default;
    ActiveReport(const ActiveReport&) = delete;
    ActiveReport& operator=(const ActiveReport&) = delete;
    ActiveReport(ActiveReport&&) = delete;
    ActiveReport& operator=(ActiveReport&&) = delete;

    Report_Band PageHeader;
    Report_Band GroupHeader1;
    Report_Band Detail;
    Report_Band GroupFooter1;
    Report_Band PageFooter;
    Report_Fields Fields;
    Report_Contents TOC;
    Report_Tools Tools;
    Report_Pages Pages;
    Page_Settings PageSettings;
    Report_Printer Printer;
    double PrintWidth = 9360; ///< twips
    Twips_Rect Window;        ///< of the report's window: kept up to date by it
    std::string Caption;      ///< of that window
    int MousePointer = 0;     ///< 11: the hourglass

    /// Runs the report and puts it on pages. A failure of a handler passes after `ReportEnd`; the pages
    /// then stay as they were.
    void Run();
    /// A new run from the start. Whoever shows the report is told of the new pages.
    void Restart();
    /// Whether the last run was ended before its end. Its pages are those made until then.
    [[nodiscard]] bool Canceled() const { return cancelled_; }
    /// The page whose header or footer is being made, from 1.
    [[nodiscard]] std::int32_t PageNumber() const { return pageNumber_; }

    /// What the report prints between page headers and footers, for the writers that know no pages: the same
    /// run, without pages.
    [[nodiscard]] Printed_Report runWithoutPages();
    /// The page header and footer as they stand on a page. Each is formatted by its handler.
    [[nodiscard]] Printed_Band headerOf(std::int32_t page, Style_Table& styles);
    [[nodiscard]] Printed_Band footerOf(std::int32_t page, Style_Table& styles);

  protected:
    virtual void ActiveReport_ReportStart() {}
    virtual void ActiveReport_DataInitialize() {}
    virtual void ActiveReport_FetchData(bool& EOF_) { static_cast<void>(EOF_); }
    virtual void Detail_Format() {}
    virtual void PageHeader_Format() {}
    virtual void PageFooter_Format() {}
    virtual void ActiveReport_ReportEnd() {}
    /// Asked again and again during a run; false ends it early.
    [[nodiscard]] virtual bool goesOn() { return true; }
    /// The pages are those of a new run.
    virtual void pagesChanged() {}

    [[nodiscard]] const Text_Metrics& metrics() const { return metrics_; }

  private:
    void layOut();
    [[nodiscard]] Keeps_On watch();
    void printInto(Printed_Report& report, double left, const Keeps_On& keepsOn);
    void printPass(Printed_Report& report, double left, const std::shared_ptr<const Printed_Band>& again,
                   const Keeps_On& keepsOn);
    void printRichText(Printed_Report& report, const Report_Control& control, double left) const;
    [[nodiscard]] Printed_Band printed(const Report_Band& band, Band_Role role, double left,
                                       Style_Table& styles);
    [[nodiscard]] std::string textOf(const Report_Control& control);
    [[nodiscard]] double heightOf(const Report_Control& control, const std::string& text) const;

    const Text_Metrics& metrics_;
    std::int32_t pageNumber_ = 0;
    bool cancelled_ = false;
};

} // namespace zorvane
