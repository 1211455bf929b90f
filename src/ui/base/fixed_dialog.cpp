// SPDX-License-Identifier: MIT
#include "ui/base/fixed_dialog.h"

#include "ui/base/text.h"

#include <QPushButton>

namespace zorvane::ui {

namespace {

constexpr double dialogPoints = 8.25;

} // namespace

Fixed_Dialog::Fixed_Dialog(const QString& name, const QString& caption, double width, double height,
                           QWidget* parent)
    : QDialog(parent,
              Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint) {
    giveName(*this, name);
    setWindowTitle(caption);
    QFont small = font();
    small.setPointSizeF(dialogPoints);
    setFont(small);
    setInnerSize(width, height);
}

void Fixed_Dialog::setInnerSize(double width, double height) {
    setFixedSize(scaleOf(*this).size(width, height));
}

QPushButton& Fixed_Dialog::addButton(const QString& name, const QString& text, const Twips_Rect& place) {
    auto* button = new QPushButton(text, this);
    put(*button, name, place);
    return *button;
}

void Fixed_Dialog::put(QWidget& widget, const QString& name, const Twips_Rect& place) {
    giveName(widget, name);
    placeAt(widget, place);
}

} // namespace zorvane::ui
