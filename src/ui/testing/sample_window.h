// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/main_window.h"

namespace zorvane::samples {

/// Fills both grids of a window with a small document: two lists, numbers, a cell in each state of a write.
void fillWindow(ui::Main_Window& window);

/// Colours, packed, of the cells in `fillWindow`.
inline constexpr std::int32_t modifiableBack = 0xC0FFFF;
inline constexpr std::int32_t writingBack = 0x80FF80;
inline constexpr std::int32_t failedBack = 0x80C0FF;

} // namespace zorvane::samples
