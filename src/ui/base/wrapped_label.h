// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace zorvane::ui {

/// A label that breaks a line also inside a word, such as a long file name, when it must.
class Wrapped_Label final : public QLabel {
  public:
    explicit Wrapped_Label(QWidget* parent);

    /// Pixels that its text needs at a width.
    [[nodiscard]] int neededHeight(int width) const;
    /// One line instead, with dots for what doesn't fit.
    void setCut(bool cut);
    /// The colour of an enabled label, also while it is disabled.
    void setReadableAlways() { readableAlways_ = true; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool cut_ = false;
    bool readableAlways_ = false;
};

} // namespace zorvane::ui
