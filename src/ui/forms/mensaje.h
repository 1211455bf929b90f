// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/fixed_dialog.h"

#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace zorvane::ui {

/// `Mensaje`, the busy form: it lies above all others and takes no focus. With the animation at hand it shows
/// a moving bar, else a growing row of dots.
class Mensaje final : public Fixed_Dialog {
  public:
    /// `animated` tells whether the animation's file is in the application folder.
    Mensaje(bool animated, QWidget* parent);

    /// Gives the form a Cancel button. Escape and the form's own close button do the same.
    void onCancel(std::function<void()> handler);

    [[nodiscard]] bool TimerEnabled() const { return timerEnabled_; }
    void setTimerEnabled(bool enabled);

    /// One more dot; a text of 35 characters starts again.
    void Timer1_Timer();

    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void load();

    QLabel* label_ = nullptr;
    QProgressBar* animation_ = nullptr;
    QPushButton* cancel_ = nullptr;
    std::function<void()> cancelled_;
    QTimer timer_;
    bool animated_;
    bool timerEnabled_ = true;
};

} // namespace zorvane::ui
