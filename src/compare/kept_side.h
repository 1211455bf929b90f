// SPDX-License-Identifier: MIT
#pragma once

#include "compare/comparison.h"

#include <map>

namespace zorvane::compare {

/// A side as it was when it was made: what it was made of may go, or go on changing.
class Kept_Side final : public Side {
  public:
    /// `shape` is the template's cells; any document of it.
    Kept_Side(const Declara_Zorvane& shape, const Side& side);

    [[nodiscard]] Cell_Side at(const Cell_Place& place) const override;
    [[nodiscard]] bool isController() const override { return controller_; }

  private:
    bool controller_;
    std::map<Cell_Place, Cell_Side> cells_; ///< those that aren't as a cell without a value
};

} // namespace zorvane::compare
