// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/fixed_dialog.h"

#include <cstdint>
#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;

namespace zorvane::ui {

/// `FontDialog`: the text size of the grids and reports, from a list of seven. The sample shows the size that
/// is applied, not the one listed. Its owner shows it without waiting.
class Font_Dialog final : public Fixed_Dialog {
  public:
    /// `stored` is the place in the list of the size in force; beyond the list's ends it is the last one.
    Font_Dialog(std::int16_t stored, QWidget* parent);

    /// Ok keeps the choice for the next start.
    bool Guardar = false;
    /// Keeps a place in the list, 0 to 6.
    std::function<void(std::int16_t index)> save;
    /// Ok was chosen, with the size to apply, in points. The dialog closes after it.
    std::function<void(double size)> ChangeFont;

  private:
    void addList();
    void addSample();
    void addButtons();
    void showChoice(const QString& listed);
    void choose();

    QListWidget* list_ = nullptr;
    QLineEdit* text_ = nullptr;
    QLabel* sample_ = nullptr;
};

} // namespace zorvane::ui
