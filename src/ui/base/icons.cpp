// SPDX-License-Identifier: MIT
#include "ui/base/icons.h"

#include <QtGlobal>

// A library's resources are linked in only when somebody asks for them, outside of any namespace.
static void loadDrawings() { Q_INIT_RESOURCE(drawings); }

namespace zorvane::ui {

QIcon icon(const QString& name) {
    loadDrawings();
    return QIcon(QStringLiteral(":/zorvane/") + name + QStringLiteral(".svg"));
}

} // namespace zorvane::ui
