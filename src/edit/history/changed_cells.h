// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

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
    void forget();

    [[nodiscard]] bool isChanged(const Declara_Zorvane& document, const Cell_Place& place) const;
    /// The changed cells, by page, row and column.
    [[nodiscard]] std::vector<Cell_Place> all(const Declara_Zorvane& document) const;

  private:
    struct Text {
        Cell_Place place;
        std::string text;
    };

    bool known_ = false;
    std::vector<Text> texts_; ///< of the cells that weren't blank, by page, row and column
};

} // namespace zorvane::edit
