// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/fixed_dialog.h"

#include <functional>

class QLabel;
class QProgressBar;

namespace zorvane::ui {

/// What the progress form tells its owner.
struct Porcentaje_Hooks {
    std::function<void()> cancel; ///< the Cancel button; it may ask, and isn't called again before it returns
    std::function<void()> unloaded; ///< the form was closed, by whatever way
};

/// `Porcentaje`, the progress form: Cancel while a transfer runs, Ok once it is over. Closing it by its frame
/// is the button that shows.
class Porcentaje final : public Fixed_Dialog {
  public:
    Porcentaje(Porcentaje_Hooks hooks, QWidget* parent);

    void setLabel(const QString& text);
    [[nodiscard]] QProgressBar& Progress_Bar() { return *bar_; }

    /// The state of a new form: Cancel in place of Ok.
    void load();
    /// The closing state: Ok in place of Cancel, and the bar at 0.
    void Deshabilita_Cancelar();
    /// Closes the form without asking.
    void unload();

    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void cancelChosen();
    void buttonThatShows();

    Porcentaje_Hooks hooks_;
    QLabel* label_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPushButton* ok_ = nullptr;
    bool asking_ = false;
};

} // namespace zorvane::ui
