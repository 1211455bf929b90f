// SPDX-License-Identifier: MIT
#include "ui/main/split_bar.h"

#include "ui/base/roles.h"
#include "ui/base/text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace zorvane::ui {

namespace {

constexpr int keyStep = 8; // pixels

} // namespace

Split_Bar::Split_Bar(QWidget* parent) : QWidget(parent) {
    giveRole(*this, QAccessible::Separator);
    giveName(*this, QStringLiteral("PicLineHoriz"));
    setToolTip(QStringLiteral("Resize grids N/S"));
    setAccessibleName(QStringLiteral("Splitter"));
    setCursor(Qt::SplitVCursor);
}

void Split_Bar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), dragging_ || hasFocus() ? QColor(Qt::white) : palette().color(QPalette::Window));
    if (!dragging_ && !hasFocus()) return;
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void Split_Bar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    dragging_ = true;
    raise();
    update();
}

void Split_Bar::mouseMoveEvent(QMouseEvent* event) {
    if (dragging_ && event->buttons().testFlag(Qt::LeftButton) && onDrag)
        onDrag(event->position().toPoint().y());
}

void Split_Bar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !std::exchange(dragging_, false)) return;
    if (!hasFocus()) lower();
    update();
    if (onDrop) onDrop();
}

void Split_Bar::step(int pixels) {
    if (onDrag) onDrag(pixels);
    if (onDrop) onDrop();
}

void Split_Bar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return step(-keyStep);
    case Qt::Key_Down:
        return step(keyStep);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        if (onLeave) onLeave();
        return;
    default:
        return QWidget::keyPressEvent(event);
    }
}

void Split_Bar::focusInEvent(QFocusEvent*) {
    raise();
    update();
}

void Split_Bar::focusOutEvent(QFocusEvent*) {
    lower();
    update();
}

} // namespace zorvane::ui
