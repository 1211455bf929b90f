// SPDX-License-Identifier: MIT
#pragma once

#include "ui/compare/comparison_model.h"

#include <QTableView>

#include <cstddef>
#include <optional>

namespace zorvane::ui {

/// The listed rows of a comparison on the screen: F8 and Alt+Down go to the next difference, Shift+F8 and
/// Alt+Up back, the space bar ticks. No column is outside, as long as the window leaves each its least.
class Comparison_Table final : public QTableView {
  public:
    /// The model must outlive it.
    Comparison_Table(Comparison_Model& model, QWidget* parent);

    void next();
    void previous();
    /// The row with the keyboard, from 0; nothing when there is none.
    [[nodiscard]] std::optional<std::size_t> current() const;
    /// Each column as wide as it should be, or so much less that all fit.
    void fitColumns();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void addKeys(const QList<QKeySequence>& keys, void (Comparison_Table::*go)());
    void goTo(std::optional<std::size_t> place);
    void toggleTicks();

    Comparison_Model& rows_;
};

} // namespace zorvane::ui
