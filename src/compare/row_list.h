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
class Row_List {
  public:
    Row_List() = default;
    explicit Row_List(Comparison comparison);

    [[nodiscard]] const Comparison& comparison() const { return comparison_; }

    /// Lists the rows that the filter lets through; those that are equal only with `all`, or when the filter
    /// names signs.
    void list(const Filter& filter, bool all);

    [[nodiscard]] std::size_t size() const { return listed_.size(); }
    [[nodiscard]] const Row& at(std::size_t place) const { return comparison_.rows[listed_[place]]; }

    [[nodiscard]] bool ticked(std::size_t place) const { return ticked_[listed_[place]]; }
    void tick(std::size_t place, bool on) { ticked_[listed_[place]] = on; }
    /// Ticks the listed rows that differ or that one side only has; all others lose their ticks.
    void tickDifferences();
    void tickNothing() { ticked_.assign(ticked_.size(), false); }
    /// Those ticked, in order, listed or not.
    [[nodiscard]] std::vector<const Row*> tickedRows() const;

    /// The listed row after or before a place that differs or that one side only has; from the end on it goes
    /// on at the beginning, and the other way round. Without a place the first or the last one. Nothing when
    /// there is none.
    [[nodiscard]] std::optional<std::size_t> nextDifference(std::optional<std::size_t> from) const;
    [[nodiscard]] std::optional<std::size_t> previousDifference(std::optional<std::size_t> from) const;
    /// "3 of 17": which of the listed differences stands at a place; "17 differences" elsewhere, and "no
    /// difference" without any.
    [[nodiscard]] std::string differenceText(std::optional<std::size_t> place) const;

  private:
    Comparison comparison_;
    std::vector<Row_Texts> texts_;         ///< of each row
    std::vector<bool> ticked_;             ///< each row
    std::vector<std::size_t> listed_;      ///< numbers of rows
    std::vector<std::size_t> differences_; ///< places in the list, in order
};

/// Whether a row counts as a difference: what is to be sent or taken over.
[[nodiscard]] constexpr bool isDifference(Sign sign) noexcept {
    return sign == Sign::Differs || sign == Sign::One_Side;
}

} // namespace zorvane::compare
