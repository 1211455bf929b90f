// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace zorvane {

/// A text size as the font dialog lists it, and the size that it stands for, both in points.
struct Font_Size_Entry {
    double listed;
    double applied;
};

inline constexpr std::array<Font_Size_Entry, 7> fontSizes = {
    {{8, 7.5}, {8.5, 8.25}, {9, 9}, {9.5, 9.75}, {10, 10.5}, {10.5, 11.25}, {11, 12}}};

/// The size applied for a listed one. A size that isn't listed stands for itself.
[[nodiscard]] double Font_Size_Map(double listed) noexcept;

/// A listed size as the dialog's list shows it, with a blank in front: " 8.5". REQUIRES: index is 0 to 6.
[[nodiscard]] std::string listedFontSize(std::size_t index);

} // namespace zorvane
