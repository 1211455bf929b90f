// SPDX-License-Identifier: MIT
#include "simulator/controller/live_values.h"

#include "simulator/faults/dice.h"

#include <algorithm>

namespace zorvane::simulator {

namespace {

/// 0, 1, …, height, …, 0, -1, …, -height, …, -1 and round again.
std::int64_t triangle(std::uint64_t step, std::int64_t height) {
    const auto place = static_cast<std::int64_t>(step % static_cast<std::uint64_t>(4 * height));
    if (place <= height) return place;
    if (place <= 3 * height) return 2 * height - place;
    return place - 4 * height;
}

std::uint16_t nextCode(std::uint16_t base, const std::vector<std::uint16_t>& codes, std::uint64_t reading) {
    const auto found = std::find(codes.begin(), codes.end(), base);
    if (found == codes.end()) return base;
    const auto start = static_cast<std::uint64_t>(found - codes.begin());
    return codes[(start + reading) % codes.size()];
}

} // namespace

std::uint16_t liveValue(std::uint16_t base, const Live_Range& range, std::uint64_t seed, std::int32_t number,
                        std::uint64_t reading) {
    if (!range.codes.empty()) return nextCode(base, range.codes, reading);
    Dice dice(seed ^ (static_cast<std::uint64_t>(number) << 20U));
    const std::int64_t height = 2 + dice.below(4);
    const std::int64_t direction = dice.below(2) == 0 ? 1 : -1;
    const std::int64_t offset = direction * triangle(reading, height);
    const auto inside = [&](std::int64_t value) {
        return value >= 0 && value <= 0xFFFF && ((value ^ base) & range.fixedBits) == 0;
    };
    const std::int64_t value = inside(base + offset) ? base + offset : base - offset;
    return static_cast<std::uint16_t>(inside(value) ? value : base);
}

} // namespace zorvane::simulator
