// SPDX-License-Identifier: MIT
#pragma once

#include "app/print_form.h"
#include "app/testing/scripted_dialog.h"
#include "comm/modbus_control/testing/journal.h"
#include "values/numbers.h"

#include <functional>
#include <optional>
#include <string>

namespace zorvane::doubles {

/// The windows of the reports without a window; what is asked of them goes to the journal.
class Recording_Print_Form : public app::Print_Form {
  public:
    explicit Recording_Print_Form(Journal& journal) : dialog(journal), journal_(journal) {}

    /// What the user does in the page set-up dialog: gives True to confirm. Without it he cancels.
    std::function<bool(Page_Settings&, Report_Printer&)> setUp;
    bool yes = true; ///< the user's answer to the platform's question
    /// When the user presses Cancel in the busy form: after so many times that the run asked.
    std::optional<int> cancelsAfter;
    Scripted_Dialog dialog;

    bool PageSetup(Page_Settings& page, Report_Printer& printer) override {
        journal_.add("page set-up");
        return setUp && setUp(page, printer);
    }
    void showPreview(MainRepKVRT& report, int zoom) override {
        const auto& [left, top, width, height] = report.Window;
        journal_.add("\"" + report.Caption + "\" at " + numberText(left) + "," + numberText(top) + " " +
                     numberText(width) + "x" + numberText(height) + ", zoom " + std::to_string(zoom));
    }
    void showPages(const MainRepKVRT& report) override {
        journal_.add("\"" + report.Caption + "\" has pages: " + std::to_string(report.Pages.Count()));
    }
    void releasePreview(const MainRepKVRT& report) override {
        journal_.add("\"" + report.Caption + "\" closed");
    }
    void showBusy() override { journal_.add("Mensaje shown"); }
    void endBusy() override { journal_.add("Mensaje unloaded"); }
    bool keepsRunning() override { return !cancelsAfter || --*cancelsAfter > 0; }
    void showFontDialog(MainRepKVRT&) override { journal_.add("font dialog"); }
    void dropFontDialog(const MainRepKVRT&) override { journal_.add("font dialog dropped"); }
    app::CommonDialog& OpenFile() override { return dialog; }
    bool platformQuestion(const std::string& text) override {
        journal_.add("question \"" + text + "\"");
        return yes;
    }
    void openFolderOf(const std::string& path) override { journal_.add("folder of " + path + " opened"); }
    void printReport(rptPrintLog& report, bool prompt) override {
        journal_.add("log of " + std::to_string(report.Pages.Count()) + " pages printed" +
                     (prompt ? " after a choice" : ""));
    }

  private:
    Journal& journal_;
};

} // namespace zorvane::doubles
