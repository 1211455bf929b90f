// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane::edit {

/// Which cells of a document differ from what its file says. What polling or the filling of a page put into a
/// cell is no difference.
class Changed_Cells {
  public:
    /// The document is as its file says: it was opened or saved just now.
    void take(const Declara_Zorvane& document);
    /// No file says what it holds; then no cell counts as changed.
    void forget() { pages_.clear(); }

    [[nodiscard]] bool isChanged(const Declara_Zorvane& document, const Cell_Place& place) const;
    /// The changed cells, by page, row and column.
    [[nodiscard]] std::vector<Cell_Place> all(const Declara_Zorvane& document) const;

  private:
    /// The texts of a field's cells, row by row.
    struct Page {
        std::int32_t columns = 0;
        std::vector<std::string> texts;
    };

    [[nodiscard]] const std::string* textOf(const Cell_Place& place) const;

    std::vector<Page> pages_; ///< by field, from 0 for field 1
};

} // namespace zorvane::edit
