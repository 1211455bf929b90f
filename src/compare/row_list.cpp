// SPDX-License-Identifier: MIT
#include "compare/row_list.h"

#include <algorithm>
#include <utility>

namespace zorvane::compare {

Row_List::Row_List(Comparison comparison)
    : comparison_(std::move(comparison)), ticked_(comparison_.rows.size(), false) {
    texts_.reserve(comparison_.rows.size());
    for (const Row& row : comparison_.rows)
        texts_.emplace_back(row);
}

void Row_List::list(const Filter& filter, bool all) {
    const bool equalToo = all || filter.choosesSigns();
    listed_.clear();
    differences_.clear();
    for (std::size_t i = 0; i < comparison_.rows.size(); ++i) {
        const Row& row = comparison_.rows[i];
        if ((row.sign == Sign::Equal && !equalToo) || !filter.lets(row, texts_[i])) continue;
        if (isDifference(row.sign)) differences_.push_back(listed_.size());
        listed_.push_back(i);
    }
}

void Row_List::tickDifferences() {
    tickNothing();
    for (const std::size_t place : differences_)
        tick(place, true);
}

std::vector<const Row*> Row_List::tickedRows() const {
    std::vector<const Row*> rows;
    for (std::size_t i = 0; i < ticked_.size(); ++i)
        if (ticked_[i]) rows.push_back(&comparison_.rows[i]);
    return rows;
}

std::optional<std::size_t> Row_List::nextDifference(std::optional<std::size_t> from) const {
    if (differences_.empty()) return std::nullopt;
    const auto next =
        from ? std::upper_bound(differences_.begin(), differences_.end(), *from) : differences_.begin();
    return next == differences_.end() ? differences_.front() : *next;
}

std::optional<std::size_t> Row_List::previousDifference(std::optional<std::size_t> from) const {
    if (differences_.empty()) return std::nullopt;
    const auto next =
        from ? std::lower_bound(differences_.begin(), differences_.end(), *from) : differences_.end();
    return next == differences_.begin() ? differences_.back() : *(next - 1);
}

std::string Row_List::differenceText(std::optional<std::size_t> place) const {
    const std::string count = std::to_string(differences_.size());
    if (differences_.empty()) return "no difference";
    if (place) {
        const auto found = std::lower_bound(differences_.begin(), differences_.end(), *place);
        if (found != differences_.end() && *found == *place)
            return std::to_string(found - differences_.begin() + 1) + " of " + count;
    }
    return count + (differences_.size() == 1 ? " difference" : " differences");
}

} // namespace zorvane::compare
