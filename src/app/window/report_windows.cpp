// SPDX-License-Identifier: MIT
#include "app/window/report_windows.h"

#include "app/form/font_size.h"
#include "app/form/menu_state.h"
#include "reports/export/byte_file.h"
#include "reports/qt/qt_report_clock.h"
#include "template/services/native_files.h"
#include "ui/base/icons.h"
#include "ui/base/text.h"
#include "ui/forms/font_dialog.h"
#include "ui/forms/mensaje.h"
#include "ui/report/page_setup_dialog.h"
#include "ui/report/preview_window.h"
#include "ui/report/report_printing.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QTextEdit>
#include <QUrl>

namespace zorvane::app {

namespace {

const std::string animationFile = "Barra.avi";
const std::string cannotPrint = "The report can't be printed. Please verify the printer...";

std::vector<ui::Preview_Tool> toolsOf(MainRepKVRT& report) {
    std::vector<ui::Preview_Tool> tools;
    for (std::size_t index = 1; index <= report.Tools.Count(); ++index) {
        const Report_Tool& tool = report.Tools.Item(index);
        const QIcon picture =
            tool.picture == pageSetupPicture ? ui::icon(QStringLiteral("page_setup")) : QIcon();
        tools.push_back(
            {ui::fromCore(tool.Caption), ui::fromCore(tool.Tooltip), picture, tool.Visible, tool.Enabled});
    }
    return tools;
}

/// A name without an extension gets that of the chosen file type, whose pattern may say another one.
void nameAfterType(QFileDialog& dialog) {
    const auto index = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    if (const auto format = formatOfFilter(static_cast<int>(index) + 1))
        dialog.setDefaultSuffix(QString::fromStdString(extensionOf(*format)));
}

} // namespace

Report_Windows::Report_Windows(const App_Context& app, Window_Form& mainForm, Event_Edge& edge)
    : app_(app), mainForm_(mainForm), edge_(edge),
      busy_(edge,
            [this] {
                const std::string file = app_.applicationFolder + folderSeparator + animationFile;
                return std::make_unique<ui::Mensaje>(app_.files.exists(file), dialogParent());
            }),
      exportDialog_([this] { return dialogParent(); }), exporters_([this] { return busy_.keepsRunning(); }),
      commands_(app, *this,
                {metrics_, presentTime,
                 ui::toCore(mainForm.window().FLX_Configuration().view().font().family()), exporters_,
                 [](const std::string& path, const std::string& bytes) {
                     writeByteFile(pathToNative(Native_Files().found(path)), bytes);
                 }}),
      log_(*this, metrics_, presentTime) {
    prompts.pageSetup = [](ui::Page_Setup_Dialog& dialog) { return dialog.exec() == QDialog::Accepted; };
    prompts.print = [](QPrintDialog& dialog) { return dialog.exec() == QDialog::Accepted; };
    prompts.exportFile = [](QFileDialog& dialog) { return dialog.exec() == QDialog::Accepted; };
    exportDialog_.run = [this](QFileDialog& dialog) {
        const bool chosen = prompts.exportFile(dialog);
        nameAfterType(dialog);
        return chosen;
    };
    prompts.openFolder = [](const QString& folder) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
    };
    prompts.yesNo = [this](const QString& text) {
        QMessageBox box(QMessageBox::Question, ui::fromCore(applicationTitle), text,
                        QMessageBox::Yes | QMessageBox::No, dialogParent());
        box.setTextFormat(Qt::PlainText); // a file's name may look like HTML
        return box.exec() == QMessageBox::Yes;
    };
}

Report_Windows::~Report_Windows() {
    mainForm_.extras.closePreviews = nullptr;
    mainForm_.extras.restartPreviews = nullptr;
    for (const auto& [report, preview] : previews_)
        delete preview.window;
}

void Report_Windows::connect(const Menu_Context& menu) {
    const auto onChosen = [&](const char* entry, const std::function<void()>& command) {
        menu.onChosen(QString::fromLatin1(entry), [this, command] {
            if (!busy_.active()) command();
        });
    };
    onChosen("MNU_PageSetup", [this] { commands_.MNU_PageSetup_Click(); });
    onChosen("MNU_PrintPage", [this] { commands_.PRO_Imprime_Pagina(); });
    onChosen("MNU_PrintAll", [this] { commands_.PrintAllPages(); });
    onChosen("MNU_Grid", [this] { MNU_Grid_Click(app_); });
    mainForm_.extras.closePreviews = [this] { commands_.PRO_Descarga_Reportes(); };
    mainForm_.extras.restartPreviews = [this](double fontSize) { commands_.applyFontSize(fontSize); };
}

void Report_Windows::run(const std::function<void()>& handler) {
    if (!busy_.active()) edge_.run(handler);
}

QWidget* Report_Windows::dialogParent() const {
    if (QApplication::activeModalWidget() == nullptr)
        for (const auto& [report, preview] : previews_)
            if (preview.window && preview.window->isActiveWindow()) return preview.window;
    return mainForm_.dialogParent();
}

ui::Preview_Window* Report_Windows::window(const MainRepKVRT* report) const {
    const auto found = previews_.find(report);
    return found == previews_.end() ? nullptr : found->second.window.data();
}

bool Report_Windows::PageSetup(Page_Settings& page, Report_Printer& printer) {
    const bool metric = QLocale().measurementSystem() == QLocale::MetricSystem;
    ui::Page_Setup_Dialog dialog(page, printer, QPrinterInfo::availablePrinterNames(), metric,
                                 dialogParent());
    if (!prompts.pageSetup(dialog)) return false;
    page = dialog.page();
    printer = dialog.printer();
    return true;
}

void Report_Windows::showPreview(MainRepKVRT& report, int zoom) {
    if (window(&report) == nullptr) makeWindow(report, zoom);
    ui::Preview_Window& shown = *window(&report);
    shown.show();
    shown.raise();
    shown.activateWindow();
}

void Report_Windows::makeWindow(MainRepKVRT& report, int zoom) {
    auto* made = new ui::Preview_Window(ui::fromCore(report.Caption), toolsOf(report));
    previews_[&report] = {made, nullptr};
    made->setPlace(reachable(report.Window, mainForm_.screen()));
    made->view().setZoom(zoom);
    made->events.toolClicked = [this, &report](int index) {
        run([&] {
            report.ActiveReport_ToolbarClick(report.Tools.Item(static_cast<std::size_t>(index) + 1));
        });
    };
    made->events.print = [this, &report] { run([&] { printPreview(report); }); };
    made->events.closing = [this, &report] {
        if (busy_.active()) return false;
        run([&] { report.ActiveReport_Terminate(); });
        return true;
    };
    made->events.placed = [&report](const Twips_Rect& moved) { report.Window = moved; };
}

void Report_Windows::showPages(const MainRepKVRT& report) {
    if (ui::Preview_Window* shown = window(&report)) shown->setPages(&report.Pages.document);
}

void Report_Windows::releasePreview(const MainRepKVRT& report) {
    const auto found = previews_.find(&report);
    if (found == previews_.end()) return;
    ui::Preview_Window* shown = found->second.window;
    if (QDialog* dialog = found->second.fontDialog) dialog->close(); // it still speaks of the report
    previews_.erase(found);
    if (shown == nullptr) return;
    shown->events = {};
    shown->setPages(nullptr);
    shown->hide();
    shown->deleteLater(); // it may be in the midst of its closing
}

QDialog* Report_Windows::makeFontDialog(MainRepKVRT& report) {
    std::int16_t stored = 1;
    PRO_Indice_Font(app_, stored);
    auto* dialog = new ui::Font_Dialog(stored, window(&report));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->Guardar = false;
    dialog->ChangeFont = [this, &report](double size) {
        run([&] { report.FontSizeDialog_ChangeFont(size); });
    };
    return dialog;
}

void Report_Windows::showFontDialog(MainRepKVRT& report) {
    Open_Preview& preview = previews_[&report];
    if (!preview.fontDialog) preview.fontDialog = makeFontDialog(report);
    preview.fontDialog->show();
    preview.fontDialog->raise();
    preview.fontDialog->activateWindow();
}

/// The dialog is on its way out by itself.
void Report_Windows::dropFontDialog(const MainRepKVRT& report) {
    const auto found = previews_.find(&report);
    if (found != previews_.end()) found->second.fontDialog = nullptr;
}

void Report_Windows::openFolderOf(const std::string& path) {
    const QString file = QFile::decodeName(QByteArray::fromStdString(pathToNative(path)));
    prompts.openFolder(QFileInfo(file).absolutePath());
}

bool Report_Windows::platformQuestion(const std::string& text) { return prompts.yesNo(shownText(text)); }

void Report_Windows::printPreview(MainRepKVRT& report) {
    ui::Preview_Window* shown = window(&report);
    if (shown == nullptr) return;
    const Declara_Zorvane& document = app_.document();
    const QString title = document.File_Stem.empty()
                              ? ui::fromCore(report.Caption)
                              : shownText(document.File_Stem + "." + document.File_Extension);
    printPages(report, title, shown->view().page(), true);
}

/// Paper is white, so the log is black whatever the desktop's colours are.
void Report_Windows::printLog(const QTextEdit& RtbStatus, const QString& logFile) {
    const QFont font = RtbStatus.font();
    const Rich_Text log{
        ui::toCore(*RtbStatus.document()), {ui::toCore(font.family()), font.pointSizeF(), font.bold()}, 0};
    run([&] { log_.btnPrint_Click(log, pathFromNative(logFile.toStdString())); });
}

void Report_Windows::printReport(rptPrintLog& report, bool prompt) {
    printPages(report, shownText(report.LogFileName), 0, prompt);
}

void Report_Windows::printOther(ActiveReport& report, const QString& title) {
    run([&] {
        report.Run();
        printPages(report, title, 0, true);
    });
}

void Report_Windows::printPages(ActiveReport& report, const QString& title, int shown, bool prompt) {
    const Page_Document& pages = report.Pages.document;
    QPrinter printer(QPrinter::HighResolution);
    ui::prepare(printer, pages, report.Printer, title);
    if (prompt) {
        QPrintDialog dialog(&printer, dialogParent());
        ui::prepare(dialog, pages, shown);
        if (!prompts.print(dialog)) return;
    }
    busy_.show();
    const ui::Print_Outcome outcome =
        ui::print(printer, pages, shown, [this] { return busy_.keepsRunning(); });
    busy_.end();
    if (outcome == ui::Print_Outcome::Failed)
        mainForm_.Msgb_Show(cannotPrint, Msgb_Critical, applicationTitle);
}

} // namespace zorvane::app
