#include "ui/wrapped_label.h"

#include <QPainter>
#include <QTextOption>

namespace zorvane {

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

void Wrapped_Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(QRectF(rect()), text(), wrapping());
}

} // namespace zorvane
