// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

#include <cstdint>

class QLabel;

namespace zorvane::ui {

class Flex_Grid_View;

/// A width as the tip tells it, in logical inches: "0.76 inch".
[[nodiscard]] QString columnWidthText(std::int32_t twips);

/// `picTip`: a small box that tells a column's width while the user drags its border. From the first move of
/// the mouse over the grid until it leaves it, the tip watches the program's mouse.
class Column_Tip final : public QFrame {
  public:
    /// `grid` is the grid whose columns it tells of; `form` the area in which the box is shown.
    Column_Tip(Flex_Grid_View& grid, QWidget* form);

    /// The mouse moved over the grid: it is watched from now on, if it isn't already.
    void start();
    /// The user drags the border of a column, which is that wide now. The box isn't shown while the mouse is
    /// outside the grid.
    void drag(std::int32_t twips);
    /// Watches no longer.
    void stop();
    [[nodiscard]] bool watching() const { return watching_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void mouseMoved(QPoint screen);
    void endDrag();
    void placeAtCursor();

    Flex_Grid_View& grid_;
    QLabel* words_ = nullptr;
    QLabel* width_ = nullptr;
    QRect area_;    ///< of the grid, screen pixels, when the watch began
    QPoint cursor_; ///< screen pixels, where the mouse was seen last
    bool watching_ = false;
    bool dragging_ = false;
};

} // namespace zorvane::ui
