// SPDX-License-Identifier: MIT
#pragma once

#include "grids/rules/vsflexgrid.h"

#include <string_view>

namespace zorvane {

/// The alignment for a word of a template. The word is compared as it stands, so the caller brings it to
/// upper case, and trims it or not. "RIGTH" is a word of the template language and means right; an unknown
/// word is left.
[[nodiscard]] constexpr Grid_Alignment alignmentOf(std::string_view word) noexcept {
    if (word == "RIGTH" || word == "RIGHT") return Align_Right_Top;
    if (word == "CENTER") return Align_Center_Top;
    return Align_Left_Top;
}

} // namespace zorvane
