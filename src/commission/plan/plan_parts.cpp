// SPDX-License-Identifier: MIT
// Parts of registers, and a write put together from a plan and what the controller holds.
#include "commission/plan/plan.h"
#include "values/times.h"

#include <algorithm>

namespace zorvane::commission {

namespace {

constexpr std::int32_t secondsPerMinute = 60;
constexpr unsigned lowByte = 0xFF;
constexpr unsigned highByte = 0xFF00;

/// A register as a download reads it.
std::int32_t asSigned(std::uint16_t value) { return static_cast<std::int16_t>(value); }

std::uint16_t word(std::int32_t value) { return static_cast<std::uint16_t>(value & 0xFFFF); }

} // namespace

std::uint16_t composed(Part part, std::uint16_t wanted, std::uint16_t present) noexcept {
    const std::int32_t now = asSigned(present);
    const std::int32_t then = asSigned(wanted);
    switch (part) {
    case Part::Kept:
        return present;
    case Part::Whole:
        return wanted;
    case Part::High:
        return static_cast<std::uint16_t>((wanted & highByte) | (present & lowByte));
    case Part::Low:
        return static_cast<std::uint16_t>((present & highByte) | (wanted & lowByte));
    case Part::Minutes:
        return word(wholeMinutes(then) * secondsPerMinute + restSeconds(now));
    case Part::Seconds:
        return word(wholeMinutes(now) * secondsPerMinute + restSeconds(then));
    }
    return wanted;
}

bool samePart(Part part, std::uint16_t a, std::uint16_t b) noexcept { return composed(part, a, b) == b; }

bool Plan_Write::composedFromReading() const {
    return std::any_of(parts.begin(), parts.end(), [](Part part) { return part != Part::Whole; });
}

std::optional<std::vector<std::uint16_t>> composedWrite(const Plan_Write& write,
                                                        const compare::Controller_Registers& present) {
    std::vector<std::uint16_t> values = write.values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (write.parts[i] == Part::Whole) continue;
        const auto now = present.valueAt(write.address + static_cast<std::int32_t>(i));
        if (!now) return std::nullopt;
        values[i] = composed(write.parts[i], values[i], *now);
    }
    return values;
}

} // namespace zorvane::commission
