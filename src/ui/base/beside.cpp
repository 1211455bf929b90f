// SPDX-License-Identifier: MIT
#include "ui/base/beside.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <array>

namespace zorvane::ui {

namespace {

constexpr double withoutFrame = 0.95; // of the screen

} // namespace

QPoint placeBeside(const QSize& window, const QRect& other, const QRect& screen, int gap) {
    const QPoint last(std::max(screen.left(), screen.left() + screen.width() - window.width()),
                      std::max(screen.top(), screen.top() + screen.height() - window.height()));
    const int x = std::clamp(other.center().x() - window.width() / 2, screen.left(), last.x());
    const int y = std::clamp(other.center().y() - window.height() / 2, screen.top(), last.y());
    const std::array<QPoint, 4> places = {
        QPoint(x, other.top() + other.height() + gap), QPoint(x, other.top() - gap - window.height()),
        QPoint(other.left() + other.width() + gap, y), QPoint(other.left() - gap - window.width(), y)};
    const auto* const found = std::find_if(places.begin(), places.end(), [&](const QPoint& place) {
        return screen.contains(QRect(place, window));
    });
    return found != places.end() ? *found : last;
}

QSize withinScreen(const QWidget& window, const QSize& wanted) {
    return wanted.boundedTo(window.screen()->availableSize() * withoutFrame);
}

} // namespace zorvane::ui
