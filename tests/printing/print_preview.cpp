// SPDX-License-Identifier: MIT
// Opens a document in the window, previews it, chooses the printer in the page set-up and prints:
// print_preview MODELS FOLDER DOCUMENT PRINTER. Prints the texts of the preview's pages as a list of lists in
// JSON.
#include "app/window/kvrt_principal.h"
#include "app/window/report_windows.h"
#include "ui/report/page_setup_dialog.h"
#include "ui/report/preview_window.h"
#include "values/code_page.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>

#include <nlohmann/json.hpp>

#include <cstdio>
#include <iostream>

namespace {

using namespace zorvane;

int complain(const char* what) {
    std::fprintf(stderr, "print_preview: %s\n", what);
    return 1;
}

nlohmann::json textsOf(const Page_Document& document) {
    auto pages = nlohmann::json::array();
    for (const Page& page : document.pages) {
        auto& texts = pages.emplace_back(nlohmann::json::array());
        for (const Page_Item& item : page.items)
            if (const auto* text = std::get_if<Text_Item>(&item)) texts.push_back(toUtf8(text->text));
    }
    return pages;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 5) return 2;
    const std::string folder = argv[2];
    app::KVRT_Principal program(app::Program_Places{argv[1], folder + "/recovery",
                                                    QString::fromStdString(folder + "/settings.conf")});
    std::string messages;
    program.mainForm().ask = [&](const QString& prompt, int, const QString&) {
        messages += prompt.toStdString() + "\n";
        return 1;
    };
    program.mainForm().dialog().run = [&](QFileDialog& dialog) {
        dialog.selectFile(QString::fromLocal8Bit(argv[3]));
        return true;
    };
    app::Report_Windows& reports = program.reports();
    const QString printer = QString::fromLocal8Bit(argv[4]);
    reports.prompts.pageSetup = [&](ui::Page_Setup_Dialog& dialog) {
        auto& printers = *dialog.findChild<QComboBox*>("Printer");
        printers.setCurrentIndex(printers.findText(printer));
        return printers.currentText() == printer;
    };
    bool chosen = false;
    reports.prompts.print = [&](QPrintDialog& dialog) {
        chosen = dialog.printer()->printerName() == printer;
        QTimer::singleShot(0, &dialog, &QDialog::accept);
        return dialog.exec() == QDialog::Accepted;
    };
    program.start();
    program.mainForm().timers().fire(Timer_Name::TMR_Abre_ZTP);
    program.mainForm().timers().fire(Timer_Name::TMR_Inicial_ZTP);
    program.window().menu().action("MNU_Open").trigger();
    program.window().menu().action("MNU_PageSetup").trigger();
    program.window().menu().action("MNU_PrintAll").trigger();
    const MainRepKVRT* report = reports.commands().PrintAll();
    if (report == nullptr) return complain("there is no preview");
    reports.window(report)->findChild<QAction*>("Print")->trigger();
    if (!chosen) return complain("the printer isn't there");
    if (!messages.empty()) return complain(messages.c_str());
    std::cout << textsOf(report->Pages.document).dump() << '\n';
    return 0;
}
