// SPDX-License-Identifier: MIT
#include "ui/base/caption_box.h"

#include "ui/base/text.h"

#include <QPainter>

namespace zorvane::ui {

namespace {

constexpr double captionPoints = 8.25;
constexpr int captionLeft = 6;

} // namespace

Caption_Box::Caption_Box(const QString& name, const QString& caption, QWidget* parent)
    : QGroupBox(caption, parent) {
    giveName(*this, name);
    setAccessibleName(caption.trimmed());
    QFont small = font();
    small.setPointSizeF(captionPoints);
    setFont(small);
}

void Caption_Box::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QFontMetrics metrics = painter.fontMetrics();
    const int lineY = metrics.capHeight() / 2;
    const int textWidth = metrics.horizontalAdvance(title());
    painter.setPen(palette().color(QPalette::Mid));
    painter.setClipRegion(QRegion(rect()) - QRect(captionLeft, 0, textWidth, metrics.height()));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, lineY + 0.5, -0.5, -0.5), 2, 2);
    painter.setClipping(false);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(captionLeft, metrics.capHeight(), title());
}

} // namespace zorvane::ui
