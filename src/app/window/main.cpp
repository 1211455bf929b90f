// SPDX-License-Identifier: MIT
#include "app/desktop/end_signals.h"
#include "app/window/kvrt_principal.h"
#include "template/services/native_files.h"
#include "ui/base/focus_style.h"
#include "ui/base/icons.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

/// Without one Qt would advise to install the program again, and abort.
bool hasDisplay() {
#ifdef Q_OS_LINUX
    constexpr std::array names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
#else
    return true;
#endif
}

} // namespace

int main(int argc, char* argv[]) {
    if (!hasDisplay()) {
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
