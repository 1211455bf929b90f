// SPDX-License-Identifier: MIT
#include "comm/modbus_control/reading_choice.h"

namespace zorvane {

Rtu_Request chooseReading(Rtu_Transaction& transaction, const Wanted_Reading& wanted) {
    const Scan_Frame& frame = wanted.frame;
    const Rtu_Request whole = readRequest(wanted.unit, wanted.address, frame.count);
    const auto& last = wanted.last;
    const bool again =
        last && last->unit == wanted.unit && last->address == wanted.address && last->count <= frame.count;
    if (again && !transaction.mayBeConfused(*last)) return *last;
    if (!transaction.expects(whole)) return whole;
    if (!transaction.mayBeConfused(whole) && wanted.onlyOfItsShape) return whole;
    const auto isFree = [&](std::uint16_t count) {
        return !transaction.expects(readRequest(wanted.unit, wanted.address, count));
    };
    const auto part = freePart(frame, wanted.together, isFree);
    return part ? readRequest(wanted.unit, wanted.address, *part) : whole;
}

bool saysNotInParts(std::uint8_t exception) noexcept {
    constexpr std::uint8_t illegalAddress = 2;
    constexpr std::uint8_t illegalValue = 3;
    return exception == illegalAddress || exception == illegalValue;
}

} // namespace zorvane
