// SPDX-License-Identifier: MIT
#include "compare/row_list.h"

#include <algorithm>
#include <utility>

namespace zorvane::compare {

namespace {

std::vector<Row_Texts> textsOf(const Comparison& comparison) {
    std::vector<Row_Texts> texts;
    texts.reserve(comparison.rows.size());
    for (const Row& row : comparison.rows)
        texts.emplace_back(row);
    return texts;
}

bool differs(const Row* row) { return row != nullptr && isDifference(row->sign); }

} // namespace

Row_List::Row_List(Comparison comparison) : right_(std::move(comparison)) {
    cells_.reserve(right_.rows.size());
    for (std::size_t i = 0; i < right_.rows.size(); ++i)
        cells_.push_back({noRow, i});
    takeTexts();
}

/// Both have their rows in the order of the places.
Row_List::Row_List(Comparison left, Comparison right)
    : left_(std::move(left)), right_(std::move(right)), threeSides_(true) {
    std::size_t l = 0;
    std::size_t r = 0;
    while (l < left_.rows.size() || r < right_.rows.size()) {
        const bool noLeft = l == left_.rows.size();
        const bool noRight = r == right_.rows.size();
        const bool same = !noLeft && !noRight && left_.rows[l].place == right_.rows[r].place;
        const bool takeLeft = same || noRight || (!noLeft && left_.rows[l].place < right_.rows[r].place);
        const bool takeRight = same || !takeLeft;
        cells_.push_back({takeLeft ? l : noRow, takeRight ? r : noRow});
        l += takeLeft ? 1 : 0;
        r += takeRight ? 1 : 0;
    }
    takeTexts();
}

void Row_List::takeTexts() {
    leftTexts_ = textsOf(left_);
    rightTexts_ = textsOf(right_);
    ticked_.assign(cells_.size(), false);
}

bool Row_List::wanted(const Listed_Cell& cell, const Filter& filter, bool equalToo) const {
    const auto fits = [&](const Row* row, const Row_Texts& texts) {
        return (equalToo || row->sign != Sign::Equal) && filter.lets(*row, texts);
    };
    return (cell.right != noRow && fits(rightOf(cell), rightTexts_[cell.right])) ||
           (cell.left != noRow && fits(leftOf(cell), leftTexts_[cell.left]));
}

void Row_List::list(const Filter& filter, bool all) {
    const bool equalToo = all || filter.choosesSigns();
    listed_.clear();
    differences_.clear();
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        if (!wanted(cells_[i], filter, equalToo)) continue;
        if (differs(leftOf(cells_[i])) || differs(rightOf(cells_[i]))) differences_.push_back(listed_.size());
        listed_.push_back(i);
    }
}

const Row& Row_List::at(std::size_t place) const {
    const Row* const right = rightRow(place);
    return right != nullptr ? *right : *leftRow(place);
}

void Row_List::tickDifferences() {
    tickNothing();
    for (const std::size_t place : differences_)
        tick(place, true);
}

std::vector<const Row*> Row_List::tickedRows() const {
    std::vector<const Row*> rows;
    for (std::size_t i = 0; i < ticked_.size(); ++i)
        if (ticked_[i]) rows.push_back(cells_[i].right != noRow ? rightOf(cells_[i]) : leftOf(cells_[i]));
    return rows;
}

std::string Row_List::ticksText() const {
    const auto all = std::count(ticked_.begin(), ticked_.end(), true);
    if (all == 0) return {};
    const auto listed =
        std::count_if(listed_.begin(), listed_.end(), [this](std::size_t cell) { return ticked_[cell]; });
    std::string text = std::to_string(all) + " ticked";
    if (listed < all) text += ", " + std::to_string(all - listed) + " of them not listed";
    return text;
}

std::vector<const Row*> Row_List::tickedLeftRows() const {
    std::vector<const Row*> rows;
    for (std::size_t i = 0; i < ticked_.size(); ++i)
        if (ticked_[i] && cells_[i].left != noRow) rows.push_back(leftOf(cells_[i]));
    return rows;
}

std::vector<const Row*> Row_List::tickedRightRows() const {
    std::vector<const Row*> rows;
    for (std::size_t i = 0; i < ticked_.size(); ++i)
        if (ticked_[i] && cells_[i].right != noRow) rows.push_back(rightOf(cells_[i]));
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
