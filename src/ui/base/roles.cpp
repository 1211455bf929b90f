// SPDX-License-Identifier: MIT
#include "ui/base/roles.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace zorvane::ui {

namespace {

constexpr const char* property = "zorvane_role";

/// The factory of the widgets that were given a role; all others are left to Qt.
QAccessibleInterface* madeFor(const QString&, QObject* object) {
    const QVariant role = object == nullptr ? QVariant() : object->property(property);
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr || !role.isValid()) return nullptr;
    return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt())); // Qt takes it over
}

} // namespace

void giveRole(QWidget& widget, QAccessible::Role role) {
    QAccessible::installFactory(madeFor); // once; the same one again has no effect
    widget.setProperty(property, static_cast<int>(role));
}

} // namespace zorvane::ui
