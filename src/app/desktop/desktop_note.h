// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zorvane::app {

/// Shows a note of the desktop (https://specifications.freedesktop.org/notification-spec, 1.2), in plain
/// text. Where nothing shows notes, nothing happens; nobody waits for it.
void showDesktopNote(const QString& summary, const QString& text);

} // namespace zorvane::app
