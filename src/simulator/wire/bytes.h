// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <vector>

namespace zorvane::simulator {

using Bytes = std::vector<std::uint8_t>;
using Bytes_View = std::span<const std::uint8_t>;

/// A moment on the monotonic clock.
using Instant = std::chrono::steady_clock::time_point;

} // namespace zorvane::simulator
