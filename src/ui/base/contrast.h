// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace zorvane::ui {

/// How bright a colour is to the eye, 0 to 1: https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
[[nodiscard]] double luminanceOf(const QColor& colour);

/// The contrast of two colours, 1 to 21: https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio
[[nodiscard]] double contrastOf(const QColor& one, const QColor& other);

/// So much of one colour, 0 to 1, and the rest of the other. What they let through plays no part.
[[nodiscard]] QColor mixed(const QColor& one, double part, const QColor& other);

} // namespace zorvane::ui
