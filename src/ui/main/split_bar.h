// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

namespace zorvane::ui {

/// The bar between the two boxes. It lies behind them, and in front of them and white while it is dragged or
/// has the keyboard.
class Split_Bar final : public QWidget {
  public:
    explicit Split_Bar(QWidget* parent);

    std::function<void(int mouseY)>
        onDrag; ///< the mouse, in pixels below the bar's top, its left button down
    std::function<void()> onDrop;
    std::function<void()> onLeave; ///< the user has done with it by keyboard

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// Up and Down move the bar; Return and Esc give the keyboard back.
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void step(int pixels);

    bool dragging_ = false;
};

} // namespace zorvane::ui
