// SPDX-License-Identifier: MIT
#pragma once

#include "commission/plan/chosen_cells.h"
#include "template/model/declara_zorvane.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zorvane::ctl {

/// `--only FIELD[,ROW[,COLUMN]]`, as often as wanted.
class Only_Argument {
  public:
    void add(CLI::App& arguments);
    [[nodiscard]] commission::Chosen_Cells cells() const;
    /// Which of them names no cell of the document, in a sentence; empty when all do.
    [[nodiscard]] std::string fault(const Declara_Zorvane& document) const;
    [[nodiscard]] bool given() const { return !patterns_.empty(); }

  private:
    std::vector<std::string> patterns_;
};

} // namespace zorvane::ctl
