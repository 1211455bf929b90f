// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_rec.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// The in-cell list of a cell with messages, "|#0;Off|#1;On": each entry under its place counted from 0,
/// whatever its code is. "" for a cell whose list has no entry.
[[nodiscard]] std::string comboListOf(const Cell_Rec& cell);

/// How many characters an ASCII range takes, two a register; 0, which means no limit, for a range that runs
/// backwards.
[[nodiscard]] std::int32_t editMaxLengthOf(const Cell_Rec& cell);

/// Which row of the upper grid a click means.
struct Row_Hit {
    std::int16_t mouseRow = 0; ///< one above the grid row
    bool selects = false;      ///< no for a click in the heading

    [[nodiscard]] std::int32_t row() const noexcept { return mouseRow - 1; }
};

/// What the hit test knows of the grid. All rows are taken to be as high as row 0.
struct Row_Hit_Grid {
    std::int32_t rowHeight = 0; ///< twips
    std::int32_t topRow = 1;
    std::int32_t rows = 0;
    std::int32_t cols = 0;
};

/// The row at `mouseY` twips below the grid's top. A click below the last row means the last one, a click in
/// the heading none. A row beyond 16 bits is failure 6.
[[nodiscard]] Row_Hit rowHit(std::int16_t mouseY, const Row_Hit_Grid& grid);

} // namespace zorvane
