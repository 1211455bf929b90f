// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class QWidget;

namespace zorvane::ui {

/// Tells a screen reader what a widget is of which Qt knows no more than that it fills a place. To be called
/// first in the widget's constructor: a name already asks for the role.
void giveRole(QWidget& widget, QAccessible::Role role);

} // namespace zorvane::ui
