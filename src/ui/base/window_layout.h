// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/twips_scale.h"

#include <array>
#include <cstddef>

namespace zorvane::ui {

inline constexpr std::size_t panelCount = 7;

/// Where the parts of the main form stand. The form is laid out in pixels, with fractions kept so that many
/// small steps don't drift; what lies inside a box is laid out in twips of that box.
struct Window_Layout {
    Twips_Scale scale;

    double savedWidth = 0;       ///< the form at the last layout, twips
    double savedHeight = 0;      ///< twips
    double savedSplitterTop = 0; ///< pixels

    Twips_Rect Frame2;       ///< pixels
    Twips_Rect Frame3;       ///< pixels
    Twips_Rect PicLineHoriz; ///< pixels
    double line1Right = 0;   ///< pixels

    Twips_Rect FLX_Configuration; ///< twips inside Frame2
    Twips_Rect FLX_Settings;      ///< twips inside Frame3

    double statusHeight = 345;                                                         ///< twips
    std::array<double, panelCount> panelWidths{1852, 1587, 1852, 5027, 661, 661, 450}; ///< twips

    bool operator==(const Window_Layout&) const = default;
};

/// Size of the form as designed: its inner area without the menu, in twips.
inline constexpr double designWidth = 6840;
inline constexpr double designHeight = 6630;

/// The form as designed. `formWidth` and `formHeight` are the twips that the form has while its inner area
/// has the design size.
[[nodiscard]] Window_Layout designLayout(Twips_Scale scale, double formWidth, double formHeight);

/// The layout for a form of that size in twips: both boxes take the change of width, the lower one takes the
/// change of height, and the message panel what the others leave. A form too low for the lower box keeps
/// the height of the last layout that fitted.
[[nodiscard]] Window_Layout resized(Window_Layout layout, double formWidth, double formHeight);

/// Where the splitter's bar goes, in pixels, while it is dragged with the mouse `mouseY` pixels below its
/// top: no nearer than 1000 twips to the top of the form's inner area and to that of the status bar.
[[nodiscard]] double splitterTop(const Window_Layout& layout, double mouseY, double statusTop);

/// The bar was let go where it stands: the upper box takes the change of height from the lower one.
[[nodiscard]] Window_Layout splitterReleased(Window_Layout layout);

} // namespace zorvane::ui
