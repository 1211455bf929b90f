// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace zorvane::ui {

/// Ground and text of a cell.
struct Cell_Colours {
    QColor back;
    QColor fore;

    bool operator==(const Cell_Colours&) const = default;
};

/// A cell's own colours on a desktop whose ground is `base`. On a dark one a pale ground becomes a dark one
/// of the same hue, and the text so light that it is told from the ground as well as before, or by the 4.5
/// that reading takes. Otherwise they stay.
[[nodiscard]] Cell_Colours fittedTo(const QColor& base, const Cell_Colours& own);

} // namespace zorvane::ui
