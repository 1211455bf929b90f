#pragma once

#include <QWidget>

#include <functional>

namespace zorvane {

/// The bar between the two frames. It lies behind them, and in front of them and white while it is dragged.
class Split_Bar final : public QWidget {
  public:
    explicit Split_Bar(QWidget* parent);

    std::function<void(int mouseY)>
        onDrag; ///< the mouse, in pixels below the bar's top, its left button down
    std::function<void()> onDrop;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    bool dragging_ = false;
};

} // namespace zorvane
