// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_place.h"
#include "template/model/cell_rec.h"

#include <cstdint>
#include <map>
#include <string>

namespace zorvane {

/// Values that stand in cells only because polling or the fill of a page put them there. They are saved like
/// any other, but nobody changed the document by them: for each such cell it is known what the document
/// itself had.
class Passing_Values {
  public:
    /// Puts a value into the cell of that place.
    void put(Cell_Rec& cell, const Cell_Place& place, const std::string& value);
    /// What stands in the cell is the document's own from now on; without a place that of all cells.
    void settle(const Cell_Place& place) { values_.erase(place); }
    void settle() { values_.clear(); }
    /// The document's own value of the cell of that place. A value that someone put over the passing one is
    /// its own, too.
    [[nodiscard]] const std::string& own(const Cell_Rec& cell, const Cell_Place& place) const;

  private:
    struct Passing {
        std::string own;
        std::string shown;
    };

    std::map<Cell_Place, Passing> values_;
};

} // namespace zorvane
