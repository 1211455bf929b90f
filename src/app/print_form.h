// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/common_dialog.h"
#include "reports/documents/main_rep_kvrt.h"
#include "reports/documents/rpt_print_log.h"

#include <string>

namespace zorvane::app {

/// What the report commands ask of the window.
class Print_Form {
  public:
    virtual ~Print_Form() = default;

    /// The page set-up dialog over these settings. True when the user confirmed; else nothing has changed.
    [[nodiscard]] virtual bool PageSetup(Page_Settings& page, Report_Printer& printer) = 0;

    /// Shows a report's window, not modally: at its rectangle `Window` if it wasn't shown yet, with its
    /// caption, its tools and the number of its zoom: -2 is a whole page. While it stands it keeps `Window`
    /// up to date, gives clicks on tools to `ActiveReport_ToolbarClick`, and when the user closes it calls
    /// `ActiveReport_Terminate`, in which the report goes.
    virtual void showPreview(MainRepKVRT& report, int zoom) = 0;
    /// Shows the report's pages as they are now, none included.
    virtual void showPages(const MainRepKVRT& report) = 0;
    /// The report is about to go: its window and its font dialog close, without `ActiveReport_Terminate`. The
    /// call may come from within the window's own closing.
    virtual void releasePreview(const MainRepKVRT& report) = 0;

    /// The busy form `Mensaje`, shown with its timer running and without waiting; painted when this returns.
    /// It goes with as many calls of `endBusy` as there were of `showBusy`.
    virtual void showBusy() = 0;
    virtual void endBusy() = 0;
    /// While the form stands: serves the windows now and then. False once the user has cancelled.
    [[nodiscard]] virtual bool keepsRunning() { return true; }

    /// The font dialog with `Guardar` False, not modally, one to a report. Its size goes to the report's
    /// `FontSizeDialog_ChangeFont`.
    virtual void showFontDialog(MainRepKVRT& report) = 0;
    virtual void dropFontDialog(const MainRepKVRT& report) = 0;

    /// The export's file dialog.
    [[nodiscard]] virtual CommonDialog& OpenFile() = 0;
    /// The platform's own box with Yes and No. True for Yes.
    [[nodiscard]] virtual bool platformQuestion(const std::string& text) = 0;

    /// Shows the folder in which that file lies, in whatever the desktop has for it.
    virtual void openFolderOf(const std::string& path) = 0;

    /// Prints a log. With `prompt` the user chooses the printer first, and may cancel.
    virtual void printReport(rptPrintLog& report, bool prompt) = 0;
};

} // namespace zorvane::app
