// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/dice.h"
#include "simulator/faults/rule_text.h"

#include <cstdint>
#include <optional>

namespace zorvane::simulator {

/// The register numbers that a request touches; none for a function without registers.
struct Touched_Registers {
    std::optional<std::int32_t> first;
    std::optional<std::int32_t> last;
};

[[nodiscard]] inline bool touches(const Strike_Rule& rule, const Touched_Registers& registers) noexcept {
    if (!rule.first) return true;
    if (!registers.first || !registers.last) return false;
    return *registers.first <= *rule.last && *registers.last >= *rule.first;
}

[[nodiscard]] inline bool covers(const Strike_Rule& rule, std::int32_t number) noexcept {
    return touches(rule, {number, number});
}

/// Whether a rule that has struck so often strikes a request. Of the dice it asks only for a rate, and only
/// when nothing else speaks against it.
[[nodiscard]] inline bool strikesNow(const Strike_Rule& rule, int struck, const Touched_Registers& registers,
                                     Dice& dice) {
    if (!touches(rule, registers)) return false;
    if (rule.count && struck >= *rule.count) return false;
    return !rule.percent || dice.unit() * 100 < *rule.percent;
}

} // namespace zorvane::simulator
