#include "ui/split_bar.h"

#include "ui/text.h"

#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace zorvane {

Split_Bar::Split_Bar(QWidget* parent) : QWidget(parent) {
    giveName(*this, QStringLiteral("PicLineHoriz"));
    setToolTip(QStringLiteral("Resize grids N/S"));
    setCursor(Qt::SplitVCursor);
}

void Split_Bar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), dragging_ ? QColor(Qt::white) : palette().color(QPalette::Window));
    if (!dragging_) return;
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
    lower();
    update();
    if (onDrop) onDrop();
}

} // namespace zorvane
