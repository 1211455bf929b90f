// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

namespace zorvane::ui {

/// One of the program's own drawings, by the name of its file: "application", "critical", "save" ...
[[nodiscard]] QIcon icon(const QString& name);

} // namespace zorvane::ui
