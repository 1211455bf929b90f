// SPDX-License-Identifier: MIT
#pragma once

#include "commission/plan/plan.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// What a write changes of the line itself.
struct Line_Change {
    std::size_t write = 0; ///< its number in the plan
    std::optional<std::int32_t> unit;
    std::optional<std::int32_t> baud;
};

/// The changes of the line among the writes. A list code means the number in its text.
[[nodiscard]] std::vector<Line_Change> lineChanges(const Declara_Zorvane& document,
                                                   const Identity_Section& section,
                                                   const std::vector<Plan_Write>& writes);

/// Why a value can't be the controller's new unit number: then nobody could talk to it any more. Empty when
/// it can, and for a cell that doesn't change the unit number.
[[nodiscard]] std::string unitMisfit(const Declara_Zorvane& document, const Identity_Section& section,
                                     const Cell_Place& place);

} // namespace zorvane::commission
