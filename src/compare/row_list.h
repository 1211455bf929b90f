// SPDX-License-Identifier: MIT
#pragma once

#include "compare/comparison.h"
#include "compare/filter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::compare {

/// The rows of a comparison as they are looked through: some of them listed, some ticked. A listed row is
/// known by its place in the list, from 0. Ticks stay with their rows whatever is listed.
///
/// Of three sides the document stands in the middle, in two comparisons. Then a listed row is a cell, with
/// its row in either of them or in both.
class Row_List {
  public:
    Row_List() = default;
    explicit Row_List(Comparison comparison);
    /// Three sides: the document is the right side of `left` and the left side of `right`. REQUIRES: both are
    /// of one document.
    Row_List(Comparison left, Comparison right);

    [[nodiscard]] bool threeSides() const { return threeSides_; }
    /// The only comparison, and that of the document with the right side.
    [[nodiscard]] const Comparison& comparison() const { return right_; }
    /// Of three sides that of the left side with the document; else empty.
    [[nodiscard]] const Comparison& leftComparison() const { return left_; }

    /// Lists the rows that the filter lets through; those that are equal only with `all`, or when the filter
    /// names signs. Of three sides one of a cell's rows is enough.
    void list(const Filter& filter, bool all);

    [[nodiscard]] std::size_t size() const { return listed_.size(); }
    /// The row, for its names: of three sides that of either comparison.
    [[nodiscard]] const Row& at(std::size_t place) const;
    /// The row in each comparison; nothing where the cell is none of its.
    [[nodiscard]] const Row* leftRow(std::size_t place) const { return leftOf(cells_[listed_[place]]); }
    [[nodiscard]] const Row* rightRow(std::size_t place) const { return rightOf(cells_[listed_[place]]); }

    [[nodiscard]] bool ticked(std::size_t place) const { return ticked_[listed_[place]]; }
    void tick(std::size_t place, bool on) { ticked_[listed_[place]] = on; }
    /// Ticks the listed rows that differ or that one side only has; all others lose their ticks.
    void tickDifferences();
    void tickNothing() { ticked_.assign(ticked_.size(), false); }
    /// Those ticked, in order, listed or not.
    [[nodiscard]] std::vector<const Row*> tickedRows() const;
    /// "7 ticked", "30 ticked, 23 of them not listed"; "" without any.
    [[nodiscard]] std::string ticksText() const;
    /// Of those ticked the rows in each comparison that has one.
    [[nodiscard]] std::vector<const Row*> tickedLeftRows() const;
    [[nodiscard]] std::vector<const Row*> tickedRightRows() const;

    /// The listed row after or before a place that differs or that one side only has; from the end on it goes
    /// on at the beginning, and the other way round. Without a place the first or the last one. Nothing when
    /// there is none.
    [[nodiscard]] std::optional<std::size_t> nextDifference(std::optional<std::size_t> from) const;
    [[nodiscard]] std::optional<std::size_t> previousDifference(std::optional<std::size_t> from) const;
    /// "3 of 17": which of the listed differences stands at a place; "17 differences" elsewhere, and "no
    /// difference" without any.
    [[nodiscard]] std::string differenceText(std::optional<std::size_t> place) const;

  private:
    static constexpr std::size_t noRow = static_cast<std::size_t>(-1);
    /// A cell's rows, by their numbers in the comparisons.
    struct Listed_Cell {
        std::size_t left = noRow;
        std::size_t right = noRow;
    };

    [[nodiscard]] const Row* leftOf(const Listed_Cell& cell) const {
        return cell.left == noRow ? nullptr : &left_.rows[cell.left];
    }
    [[nodiscard]] const Row* rightOf(const Listed_Cell& cell) const {
        return cell.right == noRow ? nullptr : &right_.rows[cell.right];
    }
    [[nodiscard]] bool wanted(const Listed_Cell& cell, const Filter& filter, bool equalToo) const;
    void takeTexts();

    Comparison left_; ///< of three sides only
    Comparison right_;
    bool threeSides_ = false;
    std::vector<Listed_Cell> cells_;
    std::vector<Row_Texts> leftTexts_; ///< of each row
    std::vector<Row_Texts> rightTexts_;
    std::vector<bool> ticked_;             ///< each cell
    std::vector<std::size_t> listed_;      ///< numbers of cells
    std::vector<std::size_t> differences_; ///< places in the list, in order
};

/// Whether a row counts as a difference: what is to be sent or taken over.
[[nodiscard]] constexpr bool isDifference(Sign sign) noexcept {
    return sign == Sign::Differs || sign == Sign::One_Side;
}

} // namespace zorvane::compare
