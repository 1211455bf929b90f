// SPDX-License-Identifier: MIT
#include "simulator/faults/quirk_rule.h"

#include <array>

namespace zorvane::simulator {

namespace {

constexpr int longestQuirkMs = 3'600'000;
constexpr int largestValue = 0xFFFF;
constexpr int largestRegister = 1'000'000;

/// In the order of `Quirk_Kind`.
constexpr std::array<Rule_Kind, 11> quirkKinds{{
    {"forgets", Value_Rule::None, 0, 0, "a write is acknowledged and not kept"},
    {"rounds", Value_Rule::Required, 2, largestValue, "stored rounded to a multiple of that number"},
    {"at-most", Value_Rule::Required, 0, largestValue, "stored as no more than that number"},
    {"at-least", Value_Rule::Required, 0, largestValue, "stored as no less than that number"},
    {"stale", Value_Rule::Required, 1, longestQuirkMs,
     "the old value is read for that many ms after a write"},
    {"drifts", Value_Rule::Required, 1, longestQuirkMs, "goes up by one each so many ms"},
    {"write-only", Value_Rule::None, 0, 0, "reading is refused with exception 2"},
    {"not-above", Value_Rule::Required, 0, largestRegister,
     "more than that register holds is refused, exception 3"},
    {"not-below", Value_Rule::Required, 0, largestRegister,
     "less than that register holds is refused, exception 3"},
    {"renumbers", Value_Rule::None, 0, 0, "what is written there becomes the unit number"},
    {"power-cut", Value_Rule::Optional, 1, longestQuirkMs,
     "no power for that many ms (1000 without), then what was stored", 1000},
}};

} // namespace

Quirk_Rule parseQuirk(std::string_view text) {
    const Rule_Text given = parseRule("quirk", quirkKinds, text);
    Quirk_Rule rule{given.strike, static_cast<Quirk_Kind>(given.kind), given.value, std::string(text)};
    if (rule.kind == Quirk_Kind::Drifts && (rule.percent || rule.count))
        throw Bad_Rule("quirk \"" + rule.text + "\": drifts takes neither rate nor count");
    return rule;
}

std::string quirkHelp() {
    return "A quirk is written like a fault, for example forgets:5%, rounds=10@40010-40020, "
           "power-cut=500:1. Kinds:\n" +
           kindsHelp(quirkKinds);
}

} // namespace zorvane::simulator
