// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/fixed_dialog.h"
#include "ui/forms/msgb_buttons.h"

namespace zorvane::ui {

/// The program's own message box. A message too long for its place makes the box higher.
class Msgb final : public Fixed_Dialog {
  public:
    Msgb(const QString& prompt, int style, const QString& title, QWidget* parent);

    /// The code of the button that was clicked; 2 while none was, and after the box was closed otherwise.
    [[nodiscard]] int Msgb_Result() const { return result_; }

  private:
    void addIcons(const Msgb_Look& look);
    void addButtons(const Msgb_Look& look);
    void addMessage(const QString& prompt);

    int result_;
};

/// Shows the box and waits for the answer. `parent` is the window that it belongs to, or none.
[[nodiscard]] int Msgb_Show(QWidget* parent, const QString& prompt, int style, const QString& title);

} // namespace zorvane::ui
