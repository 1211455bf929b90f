// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace zorvane::ui {

/// Minimizes a window that is on the screen. A maximized one comes back maximized.
void minimize(QWidget& window);

/// Asks the desktop's window manager for the iconic state of a window and for nothing else. False where
/// windows are not told that way.
[[nodiscard]] bool askForIconic(const QWidget& window);

} // namespace zorvane::ui
