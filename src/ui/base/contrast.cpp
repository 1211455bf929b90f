// SPDX-License-Identifier: MIT
#include "ui/base/contrast.h"

#include <algorithm>
#include <cmath>

namespace zorvane::ui {

namespace {

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

} // namespace

double luminanceOf(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrastOf(const QColor& one, const QColor& other) {
    const double first = luminanceOf(one) + 0.05;
    const double second = luminanceOf(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor mixed(const QColor& one, double part, const QColor& other) {
    const auto channel = [part](int first, int second) {
        return static_cast<int>(std::lround(part * first + (1 - part) * second));
    };
    return {channel(one.red(), other.red()), channel(one.green(), other.green()),
            channel(one.blue(), other.blue())};
}

} // namespace zorvane::ui
