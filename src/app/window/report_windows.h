// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/busy_run.h"
#include "app/print_commands.h"
#include "app/print_log_command.h"
#include "app/window/form/menu_context.h"
#include "app/window/form/window_dialog.h"
#include "reports/qt/qt_page_exporters.h"
#include "reports/qt/qt_report_fonts.h"

#include <QPointer>

#include <functional>
#include <map>

class QDialog;
class QFileDialog;
class QPrintDialog;
class QTextEdit;

namespace zorvane::ui {
class Page_Setup_Dialog;
class Preview_Window;
} // namespace zorvane::ui

namespace zorvane::app {

/// How the reports ask the user; whatever drives the program in a test replaces these. Each gives true for a
/// confirmed choice.
struct Report_Prompts {
    std::function<bool(ui::Page_Setup_Dialog& dialog)> pageSetup;
    std::function<bool(QPrintDialog& dialog)> print;
    std::function<bool(QFileDialog& dialog)> exportFile;
    std::function<bool(const QString& text)> yesNo;
    std::function<void(const QString& folder)> openFolder; ///< on the desktop
};

/// The windows of the reports: previews, page set-up, printing, the busy form; and the commands that use
/// them.
class Report_Windows final : private Print_Form {
  public:
    /// All three outlive it.
    Report_Windows(const App_Context& app, Window_Form& mainForm, Event_Edge& edge);
    ~Report_Windows() override;

    Report_Prompts prompts;

    /// Gives the report entries of the menu, and what the main form is asked about previews, to the commands.
    void connect(const Menu_Context& menu);

    /// "&Print Log..." of the transfer status form: the whole log, whatever is selected in it.
    void printLog(const QTextEdit& RtbStatus, const QString& logFile);

    /// Runs a report that has no preview and prints it; the user chooses the printer first, and may cancel.
    void printOther(ActiveReport& report, const QString& title);

    [[nodiscard]] Print_Commands& commands() { return commands_; }
    /// What texts measure on paper.
    [[nodiscard]] const Text_Metrics& metrics() const { return metrics_; }
    [[nodiscard]] Print_Log_Command& log() { return log_; }
    /// The window of a report, or none.
    [[nodiscard]] ui::Preview_Window* window(const MainRepKVRT* report) const;
    [[nodiscard]] Busy_Run& busy() { return busy_; }

  private:
    struct Open_Preview {
        QPointer<ui::Preview_Window> window;
        QPointer<QDialog> fontDialog;
    };

    [[nodiscard]] bool PageSetup(Page_Settings& page, Report_Printer& printer) override;
    void showPreview(MainRepKVRT& report, int zoom) override;
    void showPages(const MainRepKVRT& report) override;
    void releasePreview(const MainRepKVRT& report) override;
    void showBusy() override { busy_.show(); }
    void endBusy() override { busy_.end(); }
    [[nodiscard]] bool keepsRunning() override { return busy_.keepsRunning(); }
    void showFontDialog(MainRepKVRT& report) override;
    void dropFontDialog(const MainRepKVRT& report) override;
    [[nodiscard]] CommonDialog& OpenFile() override { return exportDialog_; }
    [[nodiscard]] bool platformQuestion(const std::string& text) override;
    void openFolderOf(const std::string& path) override;
    void printReport(rptPrintLog& report, bool prompt) override;

    /// Something happened to a window of ours: nothing begins while a report runs.
    void run(const std::function<void()>& handler);
    /// The dialog of a preview, with `Guardar` False: it keeps nothing.
    [[nodiscard]] QDialog* makeFontDialog(MainRepKVRT& report);
    void makeWindow(MainRepKVRT& report, int zoom);
    void printPreview(MainRepKVRT& report);
    void printPages(ActiveReport& report, const QString& title, int shown, bool prompt);
    [[nodiscard]] QWidget* dialogParent() const;

    const App_Context& app_;
    Window_Form& mainForm_;
    Event_Edge& edge_;
    Busy_Run busy_;
    Window_Dialog exportDialog_;
    Qt_Text_Metrics metrics_;
    Qt_Page_Exporters exporters_;
    std::map<const MainRepKVRT*, Open_Preview> previews_;
    Print_Commands commands_;
    Print_Log_Command log_;
};

} // namespace zorvane::app
