// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <cstdint>

namespace zorvane::ui {

/// A packed colour, blue in the high byte, then green, then red.
[[nodiscard]] inline QColor colourFrom(std::int32_t packed) {
    return QColor(packed & 0xFF, (packed >> 8) & 0xFF, (packed >> 16) & 0xFF);
}

} // namespace zorvane::ui
