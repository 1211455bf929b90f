// SPDX-License-Identifier: MIT
#include "commission/plan/chosen_cells.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zorvane::commission {

std::optional<Cell_Pattern> parsePattern(std::string_view text) {
    std::int32_t numbers[3] = {};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::int32_t& number : numbers) {
        if (&number != numbers) {
            if (at == end) break;
            if (*at++ != ',') return std::nullopt;
        }
        const auto [stop, error] = std::from_chars(at, end, number);
        if (error != std::errc{} || number < 1) return std::nullopt;
        at = stop;
    }
    if (at != end) return std::nullopt;
    return Cell_Pattern{numbers[0], numbers[1], numbers[2]};
}

Chosen_Cells Chosen_Cells::allByName() {
    Chosen_Cells all;
    all.byName_ = true;
    return all;
}

Chosen_Cells Chosen_Cells::these(const std::vector<Cell_Place>& places) {
    constexpr std::int32_t nowhere = -1;
    std::vector<Cell_Pattern> patterns;
    patterns.reserve(places.size());
    for (const Cell_Place& place : places)
        patterns.push_back({place.field, place.row, place.column});
    if (patterns.empty()) patterns.push_back({nowhere, nowhere, nowhere});
    return Chosen_Cells(std::move(patterns));
}

bool Chosen_Cells::holds(const Cell_Place& place) const noexcept {
    return patterns_.empty() ||
           std::any_of(patterns_.begin(), patterns_.end(),
                       [&](const Cell_Pattern& pattern) { return pattern.holds(place); });
}

bool Chosen_Cells::names(const Cell_Place& place) const noexcept {
    return byName_ || std::any_of(patterns_.begin(), patterns_.end(), [&](const Cell_Pattern& pattern) {
               return pattern.row != 0 && pattern.holds(place);
           });
}

} // namespace zorvane::commission
