// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/rule_text.h"

#include <string>
#include <string_view>

namespace zorvane::simulator {

/// What can go wrong with an answer.
enum class Fault_Kind {
    Silent,     ///< no answer
    Late,       ///< the answer comes `value` ms later
    Crc,        ///< the answer's check sum is wrong
    Truncate,   ///< only the answer's first `value` bytes come
    Noise,      ///< `value` random bytes come joined before the answer
    Echo,       ///< the request's own bytes come back before the answer, as from a two-wire adapter
    Wrong_Unit, ///< well formed, from another unit
    Wrong_Echo, ///< functions 6 and 16: another address, value or quantity; the register isn't changed
    Short,      ///< function 3: well formed, with one register fewer
    Exception,  ///< exception answer `value`; nothing is done
    Busy,       ///< exception 6 to the first `value` requests of an address; nothing is done
    Unplug,     ///< the line goes away for `value` ms; nothing is done
};

/// A fault, how often it strikes, and where.
struct Fault_Rule : Strike_Rule {
    Fault_Kind kind = Fault_Kind::Silent;
    int value = 0;
    std::string text; ///< as it was given
};

/// A fault's text that can't be understood; `what` says why, and how it should look.
using Bad_Fault = Bad_Rule;

/// KIND[=VALUE][:RATE%|:COUNT][@FIRST[-LAST]], such as `crc:5%`, `silent:3@40010-40020`, `late=300:10%@1-50`.
/// late, truncate, noise, exception and busy need a value; unplug may have one (1000 ms without). Throws
/// `Bad_Fault`.
[[nodiscard]] Fault_Rule parseFault(std::string_view text);

/// The grammar and the kinds, for the program's help.
[[nodiscard]] std::string faultHelp();

} // namespace zorvane::simulator
