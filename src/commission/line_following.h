// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "commission/plan/line_change.h"
#include "commission/plan/plan.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace zorvane::commission {

/// How a controller is reached.
struct Line_Way {
    std::int32_t unit = 1;
    Line_Settings line;
};

/// Reads registers of a unit with the present settings of the line.
using Unit_Read = std::function<Unit_Answer(std::int32_t unit, std::int32_t first, std::int32_t count)>;

/// In which way a controller answers after a write that changed its line.
struct Followed_Line {
    Line_Way way;
    bool fresh = false; ///< the new one; the old one lasts until it is switched off and on
};

/// A controller may answer in the new way at once, later, or only after it was switched off and on: asks in
/// the new and in the old way by turns, for `span`, until the register holds what was written. Nothing when
/// it doesn't, or `isStopped`: then the line is as it was.
[[nodiscard]] std::optional<Followed_Line> followLine(Unit_Writer& line, const Unit_Read& read,
                                                      const Plan_Write& write, const Line_Change& change,
                                                      const Line_Way& old, Micros span,
                                                      const std::function<bool()>& isStopped);

} // namespace zorvane::commission
