// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/dice.h"
#include "simulator/faults/fault_rule.h"
#include "simulator/wire/bytes.h"

#include <functional>

namespace zorvane::simulator {

/// Puts the check sum after the bytes of a frame.
using Sealer = std::function<Bytes(Bytes_View)>;
/// What a frame goes out in; on a serial line that is the frame itself.
using Envelope = std::function<Bytes(Bytes_View frame)>;

/// Whether the controller still does what the request says when this fault strikes the answer.
[[nodiscard]] bool executes(Fault_Kind kind) noexcept;

/// The answer that stands in the place of the right one, for faults after which nothing is executed: an
/// exception, or for functions 6 and 16 an echo with a wrong address, value or quantity. Empty for an unplug.
[[nodiscard]] Bytes replacedAnswer(const Fault_Rule& fault, Bytes_View request, const Sealer& sealed,
                                   Dice& dice);

/// An answer as it leaves the line: what the fault made of its bytes, and the frame that can still be read in
/// them. Silence leaves nothing; late and echo leave the bytes as they are.
struct Damaged_Answer {
    Bytes bytes;
    Bytes frame;
};
[[nodiscard]] Damaged_Answer damagedAnswer(const Fault_Rule& fault, Bytes_View answer, const Sealer& sealed,
                                           Dice& dice, const Envelope& envelope);

/// The exception answer to a request.
[[nodiscard]] Bytes exceptionAnswer(Bytes_View request, int exception, const Sealer& sealed);

} // namespace zorvane::simulator
