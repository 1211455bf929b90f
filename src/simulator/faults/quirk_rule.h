// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/rule_text.h"

#include <string>
#include <string_view>

namespace zorvane::simulator {

/// What a controller does otherwise than a register says. The answer stays a good one.
enum class Quirk_Kind {
    Forgets,    ///< a write is acknowledged and not kept
    Rounds,     ///< what is written is stored rounded to a multiple of `value`, halves up
    At_Most,    ///< what is written is stored as no more than `value`
    At_Least,   ///< what is written is stored as no less than `value`
    Stale,      ///< after a write the old value is read for `value` ms
    Drifts,     ///< the register goes up by one each `value` ms
    Write_Only, ///< reading is refused with exception 2
    Not_Above,  ///< a value above that of register `value` is refused with exception 3
    Not_Below,  ///< a value below that of register `value` is refused with exception 3
    Renumbers,  ///< the controller answers to the unit number that is written, from the next request on
    Power_Cut,  ///< nothing is done or answered for `value` ms; then there is what was stored
};

/// A quirk, how often it strikes, and where. Values are compared as the numbers 0 to 65535.
struct Quirk_Rule : Strike_Rule {
    Quirk_Kind kind = Quirk_Kind::Forgets;
    int value = 0;
    std::string text; ///< as it was given
};

/// KIND[=VALUE][:RATE%|:COUNT][@FIRST[-LAST]], such as `forgets:5%`, `rounds=10@40010-40020`,
/// `power-cut=500:1`. drifts takes neither rate nor count. Throws `Bad_Rule`.
[[nodiscard]] Quirk_Rule parseQuirk(std::string_view text);

/// The kinds, for the program's help.
[[nodiscard]] std::string quirkHelp();

} // namespace zorvane::simulator
