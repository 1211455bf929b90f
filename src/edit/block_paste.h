// SPDX-License-Identifier: MIT
#pragma once

#include "edit/text_block.h"
#include "edit/wanted_value.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane::edit {

/// A rectangle of cells of one page, its rows and columns counted from 1, both ends included.
struct Cell_Range {
    std::int32_t field = 0;
    std::int32_t firstRow = 0;
    std::int32_t firstColumn = 0;
    std::int32_t lastRow = 0;
    std::int32_t lastColumn = 0;

    [[nodiscard]] std::int32_t rows() const { return lastRow - firstRow + 1; }
    [[nodiscard]] std::int32_t columns() const { return lastColumn - firstColumn + 1; }
    bool operator==(const Cell_Range&) const = default;
};

/// A text of a block that its cell doesn't take.
struct Block_Refusal {
    Cell_Place place;
    std::string text;
    std::string why;
};

/// What would become of a block. Every cell of it is in one of the two lists.
struct Block_Check {
    Cell_Range range; ///< the cells that the block meets
    std::vector<Taken_Value> taken;
    std::vector<Block_Refusal> refused;

    [[nodiscard]] bool allFit() const { return refused.empty(); }
};

/// Judges a block for the cells from the selection's upper left corner on. A block of one text fills the
/// whole selection. The document stays as it is.
[[nodiscard]] Block_Check checkBlock(const Declara_Zorvane& document, const Cell_Range& selection,
                                     const Text_Rows& block);

/// "37 of 40 fit; row 12 above its limit 1400, and 2 more". The heading is named where the block has several
/// columns.
[[nodiscard]] std::string summaryOf(const Declara_Zorvane& document, const Block_Check& check);

/// What a step of the history calls such a paste: "paste of 37 values".
[[nodiscard]] std::string nameOf(const Block_Check& check);

} // namespace zorvane::edit
