// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

namespace zorvane::simulator {

/// Random numbers that are the same for the same seed on every platform.
class Dice {
  public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    /// 0 up to but not 1.
    [[nodiscard]] double unit() { return static_cast<double>(engine_() >> 11U) * 0x1.0p-53; }

    /// 0 to `bound` - 1. REQUIRES: bound > 0.
    [[nodiscard]] std::uint32_t below(std::uint32_t bound) {
        return static_cast<std::uint32_t>(engine_() % bound);
    }

  private:
    std::mt19937_64 engine_;
};

} // namespace zorvane::simulator
