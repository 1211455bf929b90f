// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/registers/register_map.h"

#include <cstdint>

namespace zorvane::simulator {

/// The value of a live register at its `reading`-th reading, counted from 0: it swings by a few units around
/// `base`, one unit a reading, and keeps to its range. The same arguments always give the same value, and
/// reading 0 is `base` itself.
[[nodiscard]] std::uint16_t liveValue(std::uint16_t base, const Live_Range& range, std::uint64_t seed,
                                      std::int32_t number, std::uint64_t reading);

} // namespace zorvane::simulator
