// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/twips_scale.h"

#include <QDialog>

#include <functional>

class QPushButton;

namespace zorvane::ui {

/// How a dialog asks the user something: text, style, title; the answer's code.
using Ask_User = std::function<int(const QString& prompt, int style, const QString& title)>;

/// A dialog of fixed size, its parts placed in twips. Small text, as its places were made for.
class Fixed_Dialog : public QDialog {
  public:
    /// `width` and `height` are its inner area in twips.
    Fixed_Dialog(const QString& name, const QString& caption, double width, double height, QWidget* parent);

  protected:
    void setInnerSize(double width, double height);
    QPushButton& addButton(const QString& name, const QString& text, const Twips_Rect& place);
    /// Gives a control its name and its place.
    void put(QWidget& widget, const QString& name, const Twips_Rect& place);
};

} // namespace zorvane::ui
