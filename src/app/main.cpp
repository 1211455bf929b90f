#include "app/kvrt_principal.h"
#include "ui/focus_style.h"
#include "ui/icons.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setStyle(new zorvane::Focus_Style); // the application takes it over
    QApplication::setApplicationName(QStringLiteral("Zorvane"));
    QApplication::setWindowIcon(zorvane::icon(QStringLiteral("application")));
    QApplication::setQuitOnLastWindowClosed(false);
    zorvane::KVRT_Principal principal(zorvane::programPlaces());
    return principal.run();
}
