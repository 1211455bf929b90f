// SPDX-License-Identifier: MIT
// Writes a picture of the window with the example document of each model, for people to look at:
//     app_pictures FOLDER [dark]
// The environment variable QT_SCALE_FACTOR sets the scale.
#include "app/document/document_commands.h"
#include "app/window/kvrt_principal.h"
#include "template/testing/temporary_folder.h"
#include "ui/base/text.h"
#include "ui/testing/dark_palette.h"

#include <QApplication>
#include <QDir>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

namespace {

using namespace zorvane;

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
    QTest::qWait(150);
    program.window().grab().save(folder.filePath(QString::fromStdString(model) + QStringLiteral(".png")));
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
    return 0;
}
