// SPDX-License-Identifier: MIT
#pragma once

namespace zorvane {

/// Templates, window layouts and reports measure in twips.
inline constexpr double twipsPerInch = 1440;
inline constexpr double twipsPerPoint = 20;

/// A place and a size in twips, of a window on the screen or of something inside a window.
struct Twips_Rect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const Twips_Rect&, const Twips_Rect&) = default;
};

} // namespace zorvane
