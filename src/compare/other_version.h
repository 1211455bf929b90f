// SPDX-License-Identifier: MIT
#pragma once

#include "compare/comparison.h"

#include <map>
#include <string>

namespace zorvane::compare {

/// A document of another version of a template, seen through the cells of this one. Cells are matched by
/// register and format; those without a register by the names of their page, row and column. A cell that the
/// other version lacks has no value there.
class Other_Version_Side final : public Side {
  public:
    /// Both must outlive it.
    Other_Version_Side(const Declara_Zorvane& shape, const Declara_Zorvane& other);
    [[nodiscard]] Cell_Side at(const Cell_Place& place) const override;
    [[nodiscard]] bool isController() const override { return false; }

  private:
    const Declara_Zorvane& shape_;
    const Declara_Zorvane& other_;
    std::map<std::string, Cell_Place> places_; ///< of the other version's cells, by what matches
};

} // namespace zorvane::compare
