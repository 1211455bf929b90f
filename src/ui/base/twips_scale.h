// SPDX-License-Identifier: MIT
#pragma once

#include "values/twips.h"

#include <QRect>
#include <QSize>

class QWidget;

namespace zorvane::ui {

/// Between twips and the logical pixels of a screen. At 96 dots to the inch a pixel is 15 twips.
struct Twips_Scale {
    double perPixelX = 15;
    double perPixelY = 15;

    [[nodiscard]] int pixelsX(double twips) const;
    [[nodiscard]] int pixelsY(double twips) const;
    [[nodiscard]] double twipsX(double pixels) const { return pixels * perPixelX; }
    [[nodiscard]] double twipsY(double pixels) const { return pixels * perPixelY; }
    [[nodiscard]] QSize size(double width, double height) const;
    /// Both edges go to the nearest pixel, so that neighbours stay neighbours at any scale. No side is
    /// negative.
    [[nodiscard]] QRect rect(const Twips_Rect& place) const;

    bool operator==(const Twips_Scale&) const = default;
};

/// The scale of the screen that a widget is on.
[[nodiscard]] Twips_Scale scaleOf(const QWidget& widget);

/// Puts a widget at a place inside its parent.
void placeAt(QWidget& widget, const Twips_Rect& place);

} // namespace zorvane::ui
