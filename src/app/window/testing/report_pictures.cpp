// SPDX-License-Identifier: MIT
// Writes pictures of the previews of all models, for people to look at: report_pictures FOLDER [dark]
#include "app/window/kvrt_principal.h"
#include "app/window/report_windows.h"
#include "template/testing/temporary_folder.h"
#include "ui/forms/mensaje.h"
#include "ui/report/page_setup_dialog.h"
#include "ui/report/preview_window.h"
#include "ui/testing/dark_palette.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QPrintDialog>
#include <QTest>

#include <filesystem>

namespace {

using namespace zorvane;

class Pictures {
  public:
    Pictures(const QString& folder, const std::string& work) : folder_(folder) {
        QDir().mkpath(folder);
        const std::string app = work + "/app";
        std::filesystem::copy(ZORVANE_MODELS, app);
        program_ = std::make_unique<KVRT_Principal>(
            Program_Places{app, work + "/recovery", QString::fromStdString(work + "/settings.conf")});
        program_->mainForm().ask = [](const QString&, int, const QString&) { return 7; };
        program_->mainForm().dialog().run = [this, app](QFileDialog& dialog) {
            dialog.selectFile(QString::fromStdString(app + "/EXAMPLE.") + model_);
            return true;
        };
        program_->reports().prompts.pageSetup = [this](ui::Page_Setup_Dialog& dialog) {
            take(dialog, QStringLiteral("page_setup"));
            dialog.findChild<QWidget*>("LeftMargin")->setProperty("value", 0.5);
            dialog.findChild<QWidget*>("TopMargin")->setProperty("value", 0.5);
            dialog.findChild<QWidget*>("RightMargin")->setProperty("value", 0.5);
            dialog.findChild<QWidget*>("Landscape")->setProperty("checked", true);
            return true;
        };
        program_->reports().prompts.print = [this](QPrintDialog& dialog) {
            take(dialog, QStringLiteral("print_dialog"));
            return false;
        };
        program_->start();
        QTest::qWait(400);
    }

    void takeModel(const QString& model) {
        model_ = model;
        choose("MNU_Open");
        program_->reports().commands().PrintAllPages();
        ui::Preview_Window& window = *program_->reports().window(program_->reports().commands().PrintAll());
        take(window, model + QStringLiteral("_design"));
        window.resize(900, 1000);
        window.view().setZoom(100);
        take(window, model + QStringLiteral("_100"));
        window.view().setPage(2);
        window.view().setZoom(zoomWholePage);
        take(window, model + QStringLiteral("_page2"));
        if (model != QStringLiteral("KVRT100")) return;
        program_->reports().commands().PrintAll()->FontSizeDialog_ChangeFont(12);
        take(window, model + QStringLiteral("_font12"));
        program_->reports().commands().PrintAll()->ActiveReport_ToolbarClick(
            program_->reports().commands().PrintAll()->Tools.Item(1));
        window.view().setZoom(zoomPageWidth);
        take(window, model + QStringLiteral("_landscape"));
        window.events.print();
        choose("MNU_Grid");
        program_->mainForm().setMenuChecked(Menu_Entry::MNU_Grid, true);
        program_->reports().commands().PRO_Imprime_Pagina();
        ui::Preview_Window& one = *program_->reports().window(program_->reports().commands().PrintGrid());
        one.resize(900, 700);
        one.view().setZoom(150);
        take(one, model + QStringLiteral("_grid"));
        ui::Mensaje busy(false, nullptr);
        busy.onCancel([] {});
        take(busy, QStringLiteral("mensaje"));
    }

  private:
    void choose(const char* entry) { program_->window().menu().action(entry).trigger(); }
    void take(QWidget& widget, const QString& name) {
        widget.show();
        QTest::qWait(100);
        widget.grab().save(folder_.filePath(name + QStringLiteral(".png")));
    }

    QDir folder_;
    QString model_;
    std::unique_ptr<KVRT_Principal> program_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) return 2;
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (argc > 2) QApplication::setPalette(samples::darkPalette());
    const doubles::Temporary_Folder work;
    Pictures pictures(QString::fromLocal8Bit(argv[1]), work.path());
    for (const char* model : {"KVRT", "KVRT100", "KVRT207D", "R7702-16"})
        pictures.takeModel(QString::fromLatin1(model));
    return 0;
}
