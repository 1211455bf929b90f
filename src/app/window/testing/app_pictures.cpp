// SPDX-License-Identifier: MIT
// Writes a picture of the window with the example document of each model, and of the windows for editing, for
// people to look at:
//     app_pictures FOLDER [dark]
// The environment variable QT_SCALE_FACTOR sets the scale.
#include "app/document/document_commands.h"
#include "app/window/edit/find_window.h"
#include "app/window/edit/fit_dialog.h"
#include "app/window/kvrt_principal.h"
#include "template/testing/temporary_folder.h"
#include "ui/base/text.h"
#include "ui/compare/compare_window.h"
#include "ui/testing/dark_palette.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

namespace {

using namespace zorvane;
using namespace zorvane::app;

void save(QWidget& window, const QDir& folder, const std::string& name) {
    QTest::qWait(150);
    window.grab().save(folder.filePath(QString::fromStdString(name) + QStringLiteral(".png")));
}

/// The window after Open, at its field 2.
void take(const QDir& folder, const std::string& model) {
    const doubles::Temporary_Folder own;
    KVRT_Principal program({ZORVANE_MODELS, own.path(), QString::fromStdString(own.path() + "/settings")});
    program.start();
    program.mainForm().timers().fire(Timer_Name::TMR_Abre_ZTP);
    program.mainForm().timers().fire(Timer_Name::TMR_Inicial_ZTP);
    openFile(program.app(), std::string(ZORVANE_MODELS) + "/EXAMPLE." + model, false);
    program.window().resize(560, 600);
    ui::Flex_Grid_View& upper = program.window().FLX_Configuration().view();
    upper.setFocus();
    while (program.window().FLX_Configuration().Row() > 2)
        QTest::keyClick(&upper, Qt::Key_Up);
    save(program.window(), folder, model);
}

/// Changed cells with their marks, the list of what was found, and the question about a block.
void takeEditing(const QDir& folder) {
    const doubles::Temporary_Folder own;
    KVRT_Principal program({ZORVANE_MODELS, own.path(), QString::fromStdString(own.path() + "/settings")});
    program.mainForm().ask = [](const QString&, int, const QString&) { return int{Msgb_Code_Ok}; };
    program.start();
    program.mainForm().timers().fire(Timer_Name::TMR_Abre_ZTP);
    program.mainForm().timers().fire(Timer_Name::TMR_Inicial_ZTP);
    openFile(program.app(), std::string(ZORVANE_MODELS) + "/EXAMPLE.KVRT207D", false);
    program.window().resize(560, 600);
    program.window().activateWindow();
    QTest::qWait(150);
    ui::Flex_Grid& lower = program.window().FLX_Settings();
    lower.view().setFocus();
    for (const std::int32_t row : {1, 2}) {
        lower.setRow(row);
        lower.setCol(1);
        QTest::keyClick(&lower.view(), Qt::Key_Delete);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    program.comparing().run = [](ui::Compare_Window& window) { window.events.sideChosen(1, 2); };
    for (const char* entry : {"MNU_Compare", "MNU_MarkDifferences", "MNU_Find"})
        program.window().menu().action(QString::fromLatin1(entry)).trigger();
    save(program.window(), folder, "changed");
    save(*program.edit().findWindow(), folder, "find");
    Fit_Dialog question({"Import values",
                         "values.csv: 2 of 3 fit, 1 of them changes",
                         {"Line 4: \"x\" not a number"},
                         2,
                         "Columns separated by semicolons; decimal sign: comma.",
                         {"Regulation/Set point/Value: 1125 becomes 1200"},
                         true},
                        &program.window());
    question.show();
    save(question, folder, "fit");
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    if (argc < 2) return 2;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (argc > 2) QApplication::setPalette(samples::darkPalette());
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    QDir().mkpath(folder.path());
    for (const std::string model : {"KVRT", "KVRT100", "KVRT207D", "R7702-16"})
        take(folder, model);
    takeEditing(folder);
    return 0;
}
