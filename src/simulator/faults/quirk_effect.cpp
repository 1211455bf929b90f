// SPDX-License-Identifier: MIT
#include "simulator/faults/quirk_effect.h"

#include "simulator/faults/strike.h"

#include <algorithm>

namespace zorvane::simulator {

namespace {

constexpr int lastUnit = 247;

/// Halves go up, but never beyond what a register holds.
std::uint16_t rounded(std::uint16_t value, int step) {
    const int nearest = (value + step / 2) / step * step;
    return static_cast<std::uint16_t>(nearest > 0xFFFF ? nearest - step : nearest);
}

std::uint16_t changed(const Quirk_Rule& rule, std::uint16_t value) {
    const auto limit = static_cast<std::uint16_t>(rule.value);
    switch (rule.kind) {
    case Quirk_Kind::Rounds:
        return rounded(value, rule.value);
    case Quirk_Kind::At_Most:
        return std::min(value, limit);
    case Quirk_Kind::At_Least:
        return std::max(value, limit);
    default:
        return value;
    }
}

bool isLimit(const Quirk_Rule& rule) {
    return rule.kind == Quirk_Kind::Not_Above || rule.kind == Quirk_Kind::Not_Below;
}

} // namespace

std::optional<std::uint16_t> storedValue(Struck_Quirks quirks, std::int32_t number, std::uint16_t sent) {
    std::uint16_t value = sent;
    for (const Quirk_Rule* rule : quirks) {
        if (!covers(*rule, number)) continue;
        if (rule->kind == Quirk_Kind::Forgets) return std::nullopt;
        value = changed(*rule, value);
    }
    return value;
}

std::chrono::milliseconds hiddenTime(Struck_Quirks quirks, std::int32_t number) {
    std::chrono::milliseconds longest{0};
    for (const Quirk_Rule* rule : quirks)
        if (rule->kind == Quirk_Kind::Stale && covers(*rule, number))
            longest = std::max(longest, std::chrono::milliseconds(rule->value));
    return longest;
}

std::optional<int> unitWritten(Struck_Quirks quirks, std::int32_t number, std::uint16_t value) {
    if (value < 1 || value > lastUnit) return std::nullopt;
    const bool struck = std::any_of(quirks.begin(), quirks.end(), [number](const Quirk_Rule* rule) {
        return rule->kind == Quirk_Kind::Renumbers && covers(*rule, number);
    });
    return struck ? std::optional<int>(value) : std::nullopt;
}

bool refusesReading(Struck_Quirks quirks) {
    return std::any_of(quirks.begin(), quirks.end(),
                       [](const Quirk_Rule* rule) { return rule->kind == Quirk_Kind::Write_Only; });
}

bool beyondLimit(Struck_Quirks quirks, const std::map<std::int32_t, std::uint16_t>& written,
                 const std::function<std::optional<std::uint16_t>(std::int32_t)>& held) {
    for (const Quirk_Rule* rule : quirks) {
        if (!isLimit(*rule)) continue;
        const auto together = written.find(rule->value);
        const std::optional<std::uint16_t> limit =
            together != written.end() ? together->second : held(rule->value);
        if (!limit) continue;
        for (const auto& [number, value] : written)
            if (covers(*rule, number) &&
                (rule->kind == Quirk_Kind::Not_Above ? value > *limit : value < *limit))
                return true;
    }
    return false;
}

} // namespace zorvane::simulator
