// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/fixed_dialog.h"

namespace zorvane::ui {

/// The about box. F12 on its button shows the credits.
class Acercade final : public Fixed_Dialog {
  public:
    Acercade(Ask_User ask, QWidget* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Ask_User ask_;
    QPushButton* close_ = nullptr;
};

} // namespace zorvane::ui
