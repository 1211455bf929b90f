#include "app/kvrt_principal.h"
#include "ui/icons.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zorvane"));
    QApplication::setWindowIcon(zorvane::icon(QStringLiteral("application")));
    QApplication::setQuitOnLastWindowClosed(false);
    zorvane::KVRT_Principal principal(zorvane::programPlaces());
    return principal.run();
}
