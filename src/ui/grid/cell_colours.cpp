// SPDX-License-Identifier: MIT
#include "ui/grid/cell_colours.h"

#include "ui/base/contrast.h"

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr double paleFrom = 0.5;    // relative luminance of a ground
constexpr double darkUpTo = 0.2;    // and of a desktop's
constexpr float groundLift = 0.08F; // lightness of the new ground over the desktop's
constexpr float mostSaturated = 0.45F;
constexpr double readable = 4.5;
constexpr float lightnessStep = 0.02F;

QColor withLightness(const QColor& colour, float saturation, float lightness) {
    return QColor::fromHslF(std::max(0.0F, colour.hslHueF()), saturation, std::min(1.0F, lightness)).toRgb();
}

} // namespace

Cell_Colours fittedTo(const QColor& base, const Cell_Colours& own) {
    if (luminanceOf(base) > darkUpTo || luminanceOf(own.back) < paleFrom) return own;
    const float saturation = std::min(mostSaturated, own.back.hslSaturationF());
    const QColor back = withLightness(own.back, saturation, base.lightnessF() + groundLift);
    const double wanted = std::min(readable, contrastOf(own.fore, own.back));
    float lightness = own.fore.lightnessF();
    QColor fore = own.fore;
    while (contrastOf(fore, back) < wanted && lightness < 1) {
        lightness += lightnessStep;
        fore = withLightness(own.fore, own.fore.hslSaturationF(), lightness);
    }
    return {back, fore};
}

} // namespace zorvane::ui
