// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

namespace zorvane::ui {

/// A box whose caption stands in its upper line, so that what lies inside may begin right below it.
class Caption_Box final : public QGroupBox {
  public:
    Caption_Box(const QString& name, const QString& caption, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zorvane::ui
