// SPDX-License-Identifier: MIT
#include "ui/base/twips_scale.h"

#include "values/twips.h"

#include <QWidget>

#include <algorithm>
#include <cmath>

namespace zorvane::ui {

namespace {

int nearest(double value) { return static_cast<int>(std::lround(value)); }

} // namespace

int Twips_Scale::pixelsX(double twips) const { return nearest(twips / perPixelX); }

int Twips_Scale::pixelsY(double twips) const { return nearest(twips / perPixelY); }

QSize Twips_Scale::size(double width, double height) const { return {pixelsX(width), pixelsY(height)}; }

QRect Twips_Scale::rect(const Twips_Rect& place) const {
    const int left = pixelsX(place.left);
    const int top = pixelsY(place.top);
    return {left, top, std::max(0, pixelsX(place.left + place.width) - left),
            std::max(0, pixelsY(place.top + place.height) - top)};
}

Twips_Scale scaleOf(const QWidget& widget) {
    return {twipsPerInch / std::max(1, widget.logicalDpiX()),
            twipsPerInch / std::max(1, widget.logicalDpiY())};
}

void placeAt(QWidget& widget, const Twips_Rect& place) { widget.setGeometry(scaleOf(widget).rect(place)); }

} // namespace zorvane::ui
