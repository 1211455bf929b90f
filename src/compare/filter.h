// SPDX-License-Identifier: MIT
#pragma once

#include "compare/comparison.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::compare {

/// What a filter searches in a row, in upper case. Made once where a filter is typed over many rows.
struct Row_Texts {
    std::string page;
    std::string all; ///< page, names and shown texts, apart from each other

    Row_Texts() = default;
    explicit Row_Texts(const Row& row);
};

/// Which rows of a comparison are listed. Words stand between blanks; a text in quotation marks is one word.
/// `is:SIGN`, `reg:FIRST-LAST` and `page:NAME` choose by sign, register and page; of several of one kind one
/// has to fit. Any other word has to occur in the row's names or texts. Letter case doesn't matter.
class Filter {
  public:
    /// An empty text lets every row through.
    Filter() = default;

    /// What is wrong with a text, whole sentences; empty when nothing is.
    [[nodiscard]] static std::string fault(std::string_view text);
    /// REQUIRES: `fault` is empty.
    explicit Filter(std::string_view text);

    [[nodiscard]] bool lets(const Row& row) const { return lets(row, Row_Texts(row)); }
    /// The same with the row's texts at hand.
    [[nodiscard]] bool lets(const Row& row, const Row_Texts& texts) const;
    /// Whether it says which signs it wants.
    [[nodiscard]] bool choosesSigns() const { return !signs_.empty(); }

  private:
    /// Takes one word; what is wrong with it.
    std::string take(std::string_view word);

    std::vector<Sign> signs_;
    std::vector<Register_Range> registers_;
    std::vector<std::string> pages_; ///< upper case, as the texts
    std::vector<std::string> texts_;
};

} // namespace zorvane::compare
