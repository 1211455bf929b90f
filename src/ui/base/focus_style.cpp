// SPDX-License-Identifier: MIT
#include "ui/base/focus_style.h"

#include <QPainter>
#include <QStyleOption>

namespace zorvane::ui {

namespace {

constexpr int besideEdge = 3; // pixels

} // namespace

void Focus_Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    const QStyle::State shown = State_HasFocus | State_KeyboardFocusChange;
    if (element != CE_PushButton || (option->state & shown) != shown) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(option->palette.color(QPalette::ButtonText), 1, Qt::DotLine));
    painter->drawRect(option->rect.adjusted(besideEdge, besideEdge, -besideEdge - 1, -besideEdge - 1));
    painter->restore();
}

} // namespace zorvane::ui
