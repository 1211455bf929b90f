// SPDX-License-Identifier: MIT
#include "ui/base/wrapped_label.h"

#include <QPainter>
#include <QTextOption>

namespace zorvane::ui {

namespace {

QTextOption wrapping() {
    QTextOption option(Qt::AlignLeft | Qt::AlignTop);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

constexpr int wrapFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextWrapAnywhere;

} // namespace

Wrapped_Label::Wrapped_Label(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

int Wrapped_Label::neededHeight(int width) const {
    constexpr int unlimited = 100000;
    return fontMetrics().boundingRect(QRect(0, 0, width, unlimited), wrapFlags, text()).height();
}

void Wrapped_Label::setCut(bool cut) {
    cut_ = cut;
    update();
}

void Wrapped_Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool readable = isEnabled() || readableAlways_;
    painter.setPen(palette().color(readable ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    if (!cut_) return painter.drawText(QRectF(rect()), text(), wrapping());
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, shown);
}

} // namespace zorvane::ui
