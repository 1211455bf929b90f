// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/quirk_rule.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>

namespace zorvane::simulator {

/// Quirks that strike one request.
using Struck_Quirks = std::span<const Quirk_Rule* const>;

/// What a register takes of a value that was written to it; nothing when the write is forgotten.
[[nodiscard]] std::optional<std::uint16_t> storedValue(Struck_Quirks quirks, std::int32_t number,
                                                       std::uint16_t sent);

/// For how long the register is still read as it was before the write.
[[nodiscard]] std::chrono::milliseconds hiddenTime(Struck_Quirks quirks, std::int32_t number);

/// The unit number that a register's new value makes the controller's; nothing for a value from elsewhere
/// than 1 to 247.
[[nodiscard]] std::optional<int> unitWritten(Struck_Quirks quirks, std::int32_t number, std::uint16_t value);

/// Whether a request for these registers can't be read.
[[nodiscard]] bool refusesReading(Struck_Quirks quirks);

/// Whether a value is beyond a limit that another register holds: as the same write leaves it, else as it is.
/// A register that isn't there limits nothing. `written` and `held` are by register number.
[[nodiscard]] bool beyondLimit(Struck_Quirks quirks, const std::map<std::int32_t, std::uint16_t>& written,
                               const std::function<std::optional<std::uint16_t>(std::int32_t)>& held);

} // namespace zorvane::simulator
