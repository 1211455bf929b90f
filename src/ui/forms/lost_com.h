// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/fixed_dialog.h"

#include <QPointer>

namespace zorvane::ui {

/// `LostCom`: tells that the controller doesn't answer any more. It isn't modal and takes no focus. While the
/// user is asked something it stands beside the question, and its button works all the same.
class Lost_Com final : public Fixed_Dialog {
  public:
    explicit Lost_Com(QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void joinQuestion();
    void leaveQuestion();
    void standBesideQuestion();

    QPointer<QWidget> question_;
    bool leavesKeyboard_ = false; ///< a desktop that activates it at its showing is told otherwise
};

} // namespace zorvane::ui
