// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace zorvane {

/// A colour word of a template to a packed colour, blue in the high byte, then green, then red: RED is
/// 0x0000FF. Letter case and blanks at the ends don't matter; an unknown word is 0.
void PRO_Color_Palabra(std::string_view word, std::int32_t& color);

[[nodiscard]] std::int32_t colourOf(std::string_view word);

} // namespace zorvane
