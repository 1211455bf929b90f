// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_place.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zorvane::commission {

/// Cells by field, row and column; 0 stands for all of them.
struct Cell_Pattern {
    std::int32_t field = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;

    [[nodiscard]] bool holds(const Cell_Place& place) const noexcept {
        return (field == 0 || field == place.field) && (row == 0 || row == place.row) &&
               (column == 0 || column == place.column);
    }
    bool operator==(const Cell_Pattern&) const = default;
};

/// "FIELD[,ROW[,COLUMN]]", whole numbers from 1; nothing for any other text.
[[nodiscard]] std::optional<Cell_Pattern> parsePattern(std::string_view text);

/// Which cells a send is for.
class Chosen_Cells {
  public:
    /// All of them, none by name.
    Chosen_Cells() = default;
    /// Those of the patterns; all when there is none.
    explicit Chosen_Cells(std::vector<Cell_Pattern> patterns) : patterns_(std::move(patterns)) {}
    /// Each of them by its name.
    [[nodiscard]] static Chosen_Cells allByName();
    /// Just these, each by its name; none at all where there is none.
    [[nodiscard]] static Chosen_Cells these(const std::vector<Cell_Place>& places);

    [[nodiscard]] bool holds(const Cell_Place& place) const noexcept;
    /// Whether the cell is chosen by its own row, or closer. What needs a special wish (a value outside its
    /// limits, a blank one, a register that changes the line) isn't sent with a whole page.
    [[nodiscard]] bool names(const Cell_Place& place) const noexcept;
    [[nodiscard]] bool all() const noexcept { return patterns_.empty(); }

  private:
    std::vector<Cell_Pattern> patterns_;
    bool byName_ = false; ///< all of them
};

} // namespace zorvane::commission
