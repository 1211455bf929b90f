#pragma once

#include <QLabel>

namespace zorvane {

/// A label that breaks a line also inside a word, such as a long file name, when it must.
class Wrapped_Label final : public QLabel {
  public:
    explicit Wrapped_Label(QWidget* parent);

    /// Pixels that its text needs at a width.
    [[nodiscard]] int neededHeight(int width) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zorvane
