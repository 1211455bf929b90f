// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace zorvane::ui {

/// Where the message bar may stand, in pixels of the form's inner area.
struct Bar_Room {
    QRect cells;          ///< what the lower grid shows its cells in
    int gridHeight = 0;   ///< of the lower grid, as far as it is seen
    int boxBottom = 0;    ///< below the last pixel of the lower box
    int clientHeight = 0; ///< of the form's inner area
    int lineHeight = 0;   ///< of a line whose text isn't wrapped
};

/// Whether a third of the grid is too low for a line.
[[nodiscard]] bool holdsOneLineOnly(const Bar_Room& room);

/// The bar's place for a content that needs that height: over the lower edge of the cells and no higher than
/// a third of the grid. Where that is too low it is one line over the lower border of the box.
[[nodiscard]] QRect barPlace(const Bar_Room& room, int neededHeight);

/// Pixels at the lower end of the cells that a bar there covers.
[[nodiscard]] int coveredCells(const Bar_Room& room, const QRect& bar);

} // namespace zorvane::ui
