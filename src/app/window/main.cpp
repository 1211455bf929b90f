// SPDX-License-Identifier: MIT
#include "app/desktop/display.h"
#include "app/desktop/end_signals.h"
#include "app/window/kvrt_principal.h"
#include "template/services/file_limits.h"
#include "template/services/native_files.h"
#include "ui/base/focus_style.h"
#include "ui/base/icons.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char* argv[]) {
    if (!zorvane::app::hasDisplay()) {
        std::fputs("zorvane: There is no display (neither DISPLAY nor WAYLAND_DISPLAY is set). "
                   "In a terminal zorvanectl does the same.\n",
                   stderr);
        return 1;
    }
    zorvane::takeFileSizeLimitAsFailure();
    QApplication application(argc, argv);
    QApplication::setStyle(new zorvane::ui::Focus_Style); // the application takes it over
    QApplication::setApplicationName(QStringLiteral("Zorvane"));
    QApplication::setWindowIcon(zorvane::ui::icon(QStringLiteral("application")));
    QApplication::setQuitOnLastWindowClosed(false);
    zorvane::app::KVRT_Principal principal(zorvane::app::programPlaces());
    const zorvane::app::End_Signals listening([&principal] { principal.endBySystem(); });
    return principal.run();
}
