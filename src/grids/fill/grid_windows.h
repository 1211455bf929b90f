// SPDX-License-Identifier: MIT
#pragma once

namespace zorvane {

/// Where the mouse and the lower grid are, as far as the heading's hit test needs it.
struct Mouse_Place {
    double cursorX = 0; ///< screen pixels
    double cursorY = 0;
    double formX = 0; ///< the main form's client origin, screen pixels
    double formY = 0;
    double frameLeft = 0; ///< `Frame3`, pixels of the form
    double frameTop = 0;
    double twipsPerPixelX = 15;
    double twipsPerPixelY = 15;
    double gridLeft = 0; ///< FLX_Settings inside its box, twips
    double gridTop = 0;
    double gridWidth = 0;
};

/// What the grids' handlers ask of the windows around them.
class Grid_Windows {
  public:
    virtual ~Grid_Windows() = default;
    /// Makes the form `FrmDebug` visible, and loads it first if need be.
    virtual void showFrmDebug() = 0;
    /// The mouse moved over the lower grid: starts the tool tip that tells a column's width.
    virtual void updateColumnTip() = 0;
    [[nodiscard]] virtual Mouse_Place mousePlace() const = 0;
    /// Scrolls both grids to their current cells.
    virtual void showCurrentCell() {}
};

} // namespace zorvane
