// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_rec.h"

#include <compare>
#include <cstdint>
#include <map>
#include <string>

namespace zorvane {

/// Where a cell stands: field, row and column, from 1.
struct Value_Place {
    std::int32_t field = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    friend auto operator<=>(const Value_Place&, const Value_Place&) = default;
};

/// Values that stand in cells only because polling or the fill of a page put them there. They are saved like
/// any other, but nobody changed the document by them: for each such cell it is known what the document
/// itself had.
class Passing_Values {
  public:
    /// Puts a value into the cell of that place.
    void put(Cell_Rec& cell, const Value_Place& place, const std::string& value);
    /// What stands in the cell is the document's own from now on; without a place that of all cells.
    void settle(const Value_Place& place) { values_.erase(place); }
    void settle() { values_.clear(); }
    /// The document's own value of the cell of that place. A value that someone put over the passing one is
    /// its own, too.
    [[nodiscard]] const std::string& own(const Cell_Rec& cell, const Value_Place& place) const;

  private:
    struct Passing {
        std::string own;
        std::string shown;
    };

    std::map<Value_Place, Passing> values_;
};

} // namespace zorvane
