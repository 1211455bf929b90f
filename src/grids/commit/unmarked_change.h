// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// A commit that changes a value without marking the document: a time, a 0 in place of letters, a limit in
/// place of what was out of it. The message bar tells what was there and what is there, and offline a button
/// puts the old value back.
class Unmarked_Change {
  public:
    /// Before the commit of that row and column of the lower grid.
    Unmarked_Change(const Grid_Context& grids, std::int32_t row, std::int32_t col, std::string typed);

    /// A valid time took its place. Silent when the document is marked already.
    void tellTime() const;
    /// Something else than the text typed took its place; `why` says what was wrong with it.
    void tellReplaced(const std::string& why) const;

  private:
    [[nodiscard]] bool changed() const;
    void tell(Bar_Kind kind, const std::string& why) const;
    [[nodiscard]] Bar_Button undoButton() const;
    /// Whether the cell still holds what it was given.
    [[nodiscard]] bool isThere(const std::string& put) const;
    /// What is said of the document's mark, to the end of the sentence.
    [[nodiscard]] std::string mark() const;

    Grid_Context grids_;
    Document_Mark document_;
    std::int32_t field_;
    std::int32_t row_;
    std::int32_t col_;
    std::string typed_;
    std::string before_;
};

} // namespace zorvane
