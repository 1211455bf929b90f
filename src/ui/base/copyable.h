// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace zorvane::ui {

/// The text of a widget can be copied: by Ctrl+C where it or a control in it has the keyboard, and by the
/// entry "Copy" of its menu. A part of it that has a use for either comes first. `text` is asked each time.
void makeCopyable(QWidget& widget, std::function<QString()> text);

} // namespace zorvane::ui
