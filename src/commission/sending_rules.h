// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "commission/plan/plan.h"
#include "compare/controller_registers.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::commission {

// What a send decides by, without a line.

/// What registers hold, as far as it is known.
using Known_Values = std::map<std::int32_t, std::uint16_t>;

/// Whether a write may be in force after this answer.
[[nodiscard]] bool mayHaveBeenTaken(const Unit_Answer& answer) noexcept;

/// Whether a controller said that it has no time for a write, which it didn't take.
[[nodiscard]] bool isBusy(const Unit_Answer& answer) noexcept;

/// "acknowledged", "refused", "no answer", "port lost" or "not sent": the end of a write in the journal.
[[nodiscard]] std::string_view writeEndWord(Unit_End end) noexcept;

/// Why a write isn't composed from a reading: a register of its block that no cell sets holds something else
/// than before. Nothing when none does.
[[nodiscard]] std::optional<std::string> otherwiseThanBefore(const Plan_Write& write,
                                                             const Known_Values& before,
                                                             const compare::Controller_Registers& now);

/// Whether all that a write sets still is what was there before it, by the registers' values now.
[[nodiscard]] bool isAsBefore(const Plan_Write& write, const Known_Values& before,
                              const std::vector<std::uint16_t>& now);

} // namespace zorvane::commission
