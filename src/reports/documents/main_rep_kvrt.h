// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/active_report.h"
#include "reports/documents/footer_texts.h"
#include "reports/documents/rpt_print_kvrt.h"

#include <cstdint>
#include <functional>
#include <string>

namespace zorvane {

class MainRepKVRT;

/// What the main report asks of its context.
class Main_Report_Host {
  public:
    virtual ~Main_Report_Host() = default;
    /// Shows the busy form `Mensaje` with its timer running, without waiting, and lets it be painted.
    virtual void showBusy() = 0;
    /// Stops the timer of the busy form and unloads it.
    virtual void endBusy() = 0;
    /// Called again and again while a report runs: time for the windows. False when the user cancelled.
    [[nodiscard]] virtual bool keepsRunning() { return true; }
    /// Stores the window's rectangle in the section of the previews. Failures of it are dropped.
    virtual void SaveConfig(const Twips_Rect& window) = 0;
    /// Shows the pages of the last run in the report's window, if it has one.
    virtual void showPages(MainRepKVRT& report) = 0;
    /// Shows the report's font dialog with `Guardar` False, not modally; what it gives goes to
    /// `FontSizeDialog_ChangeFont`. One that is open already comes to the front.
    virtual void showFontDialog(MainRepKVRT& report) = 0;
    /// Drops the font dialog after it gave its size.
    virtual void dropFontDialog(MainRepKVRT& report) = 0;
    /// Asks for a file and writes the report to it.
    virtual void exportReport(MainRepKVRT& report) = 0;
};

/// For a report that nobody looks at while it runs.
class No_Report_Windows final : public Main_Report_Host {
  public:
    void showBusy() override {}
    void endBusy() override {}
    void SaveConfig(const Twips_Rect& /*window*/) override {}
    void showPages(MainRepKVRT& /*report*/) override {}
    void showFontDialog(MainRepKVRT& /*report*/) override {}
    void dropFontDialog(MainRepKVRT& /*report*/) override {}
    void exportReport(MainRepKVRT& /*report*/) override {}
};

/// The number of the picture of the tool that sets the page up.
inline constexpr int pageSetupPicture = 101;

/// The preview and print document: a page header and footer, and a sub-report for each field of the document
/// or for one.
class MainRepKVRT : public ActiveReport {
  public:
    MainRepKVRT(Document_Report_Sources sources, Report_Clock clock, Main_Report_Host& host);

    bool OnePage = false;    ///< one field only
    std::int32_t Opcion = 0; ///< that field's number
    bool HaveGrid = false;   ///< rules around the cells
    double FontSize = 8.25;  ///< points

    /// What the owner of the report listens to. A handler may destroy the report in `UnloadMe`.
    std::function<void()> UnloadMe;
    std::function<void()> ConfigurePage;
    std::function<void()> Refresh;
    std::function<void()> EndOfRun;

    /// A tool was clicked: the tool's tip, in upper case, tells which.
    void ActiveReport_ToolbarClick(const Report_Tool& tool);
    /// The font dialog gave a size in points: from now on, columns of this report fit their texts.
    void FontSizeDialog_ChangeFont(double size);
    /// The report's window was closed: stores its rectangle and raises `UnloadMe`.
    void ActiveReport_Terminate();

  protected:
    void ActiveReport_ReportStart() override;
    void ActiveReport_DataInitialize() override;
    void ActiveReport_FetchData(bool& EOF_) override;
    void Detail_Format() override;
    void PageHeader_Format() override;
    void PageFooter_Format() override;
    void ActiveReport_ReportEnd() override;
    [[nodiscard]] bool goesOn() override { return host_.keepsRunning(); }
    void pagesChanged() override { host_.showPages(*this); }

  private:
    void ActiveReport_Initialize();
    void addSubreport(std::int32_t number);

    Document_Report_Sources sources_;
    Report_Clock clock_;
    Main_Report_Host& host_;
    std::int16_t pageCounter_ = 0; ///< fields fetched so far
    std::string dateText_;
    std::string routeText_;
    bool fontChanged_ = false;
};

} // namespace zorvane
