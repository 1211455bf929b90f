// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace zorvane::ui {

/// Where a window of that size stands beside another one and wholly on the screen: below it, above it, right
/// or left of it, with `gap` pixels between the two. Where there is room on no side, in the screen's lower
/// right corner. All with their frames, in pixels.
[[nodiscard]] QPoint placeBeside(const QSize& window, const QRect& other, const QRect& screen, int gap);

/// The size of a window that would like to have another one: no larger than its screen has room for, with a
/// frame round it. In pixels.
[[nodiscard]] QSize withinScreen(const QWidget& window, const QSize& wanted);

} // namespace zorvane::ui
