// SPDX-License-Identifier: MIT
#include "template/model/register_index.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zorvane {

std::optional<std::int32_t> registerOfAddress(std::string_view address) noexcept {
    if (address.ends_with("/HI") || address.ends_with("/LO")) address.remove_suffix(3);
    const std::size_t first = address.starts_with('-') ? 1 : 0;
    const bool zeroInFront = address.size() > 1 && address[first] == '0';
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(address.data(), address.data() + address.size(), number);
    if (error != std::errc{} || end != address.data() + address.size() || zeroInFront) return std::nullopt;
    return number;
}

void Register_Index::assign(std::vector<Register_Cell> cells) {
    cells_ = std::move(cells);
    const auto byNumber = [](const Register_Cell& a, const Register_Cell& b) { return a.number < b.number; };
    if (!std::is_sorted(cells_.begin(), cells_.end(), byNumber))
        std::stable_sort(cells_.begin(), cells_.end(), byNumber);
}

std::span<const Register_Cell> Register_Index::cellsAt(std::int32_t number) const {
    const auto below = [](const Register_Cell& cell, std::int32_t wanted) { return cell.number < wanted; };
    const auto above = [](std::int32_t wanted, const Register_Cell& cell) { return wanted < cell.number; };
    const auto first = std::lower_bound(cells_.begin(), cells_.end(), number, below);
    const auto last = std::upper_bound(first, cells_.end(), number, above);
    return {first, last};
}

} // namespace zorvane
