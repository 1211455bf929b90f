// SPDX-License-Identifier: MIT
#include "simulator/faults/fault_rule.h"

#include <array>

namespace zorvane::simulator {

namespace {

constexpr int longestFaultMs = 3'600'000;

/// In the order of `Fault_Kind`.
constexpr std::array<Rule_Kind, 12> faultKinds{{
    {"silent", Value_Rule::None, 0, 0, "no answer"},
    {"late", Value_Rule::Required, 1, longestFaultMs, "the answer comes that many ms later"},
    {"crc", Value_Rule::None, 0, 0, "the answer's check sum is wrong"},
    {"truncate", Value_Rule::Required, 1, 255, "only the answer's first so many bytes"},
    {"noise", Value_Rule::Required, 1, 255, "so many random bytes joined before the answer"},
    {"echo", Value_Rule::None, 0, 0, "the request's bytes come back before the answer"},
    {"wrong-unit", Value_Rule::None, 0, 0, "a good answer from another unit"},
    {"wrong-echo", Value_Rule::None, 0, 0, "functions 6, 16: another address, value or quantity"},
    {"short", Value_Rule::None, 0, 0, "function 3: a good frame with one register fewer"},
    {"exception", Value_Rule::Required, 1, 255, "an exception answer of that number"},
    {"busy", Value_Rule::Required, 1, 1'000'000, "exception 6 to the first so many requests of an address"},
    {"unplug", Value_Rule::Optional, 1, longestFaultMs, "the line goes away for that many ms (1000 without)",
     1000},
}};

} // namespace

Fault_Rule parseFault(std::string_view text) {
    const Rule_Text given = parseRule("fault", faultKinds, text);
    Fault_Rule rule{given.strike, static_cast<Fault_Kind>(given.kind), given.value, std::string(text)};
    return rule;
}

std::string faultHelp() {
    return "A fault is KIND[=VALUE][:RATE%|:COUNT][@FIRST[-LAST]], for example crc:5%, "
           "silent:3@40010-40020,\n"
           "late=300:10%@1-50. Without rate and count it strikes every time. Kinds:\n" +
           kindsHelp(faultKinds);
}

} // namespace zorvane::simulator
