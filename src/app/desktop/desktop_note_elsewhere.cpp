// SPDX-License-Identifier: MIT
#include "app/desktop/desktop_note.h"

namespace zorvane::app {

void showDesktopNote(const QString&, const QString&) {}

} // namespace zorvane::app
