// SPDX-License-Identifier: MIT
#include "ui/main/iconic.h"

#include <QWidget>

namespace zorvane::ui {

/// Of a maximized window Qt asks for the iconic state and right after it for the maximized one again, by
/// which some window managers bring it back.
void minimize(QWidget& window) {
    if (!window.isMaximized() || !askForIconic(window)) window.showMinimized();
}

} // namespace zorvane::ui
