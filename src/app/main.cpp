#include "app/kvrt_principal.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zorvane"));
    QApplication::setQuitOnLastWindowClosed(false);
    zorvane::KVRT_Principal principal(zorvane::programPlaces());
    return principal.run();
}
