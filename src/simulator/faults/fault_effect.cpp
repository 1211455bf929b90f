// SPDX-License-Identifier: MIT
#include "simulator/faults/fault_effect.h"

#include "simulator/wire/request.h"

#include <algorithm>
#include <array>

namespace zorvane::simulator {

namespace {

constexpr std::size_t echoLength =
    6; ///< unit, function and two words: the answer to 6 and 16 without check sum
constexpr int highestUnit = 247;

Bytes wrongEcho(Bytes_View request, const Sealer& sealed, Dice& dice) {
    Bytes body(request.begin(), request.begin() + echoLength);
    // The low byte of the address, or that of the value or quantity.
    const std::size_t place = dice.below(2) == 0 ? 3 : 5;
    body.at(place) = static_cast<std::uint8_t>(body.at(place) + 1 + dice.below(254));
    return sealed(body);
}

Bytes wrongUnit(Bytes_View answer, const Sealer& sealed) {
    Bytes body(answer.begin(), answer.end() - 2);
    std::uint8_t& unit = body.at(0);
    unit = unit >= highestUnit ? std::uint8_t{1} : static_cast<std::uint8_t>(unit + 1);
    return sealed(body);
}

Bytes oneRegisterFewer(Bytes_View answer, const Sealer& sealed) {
    Bytes body(answer.begin(), answer.end() - 4);
    std::uint8_t& byteCount = body.at(2);
    byteCount = static_cast<std::uint8_t>(byteCount - 2);
    return sealed(body);
}

Bytes wrongCheckSum(Bytes_View answer, Dice& dice) {
    Bytes bytes(answer.begin(), answer.end());
    std::uint8_t& last = bytes.at(bytes.size() - 1);
    last = static_cast<std::uint8_t>(last + 1 + dice.below(254));
    return bytes;
}

Bytes noiseThen(Bytes_View answer, int count, Dice& dice) {
    Bytes bytes;
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(dice.below(256)));
    bytes.insert(bytes.end(), answer.begin(), answer.end());
    return bytes;
}

Bytes firstBytes(Bytes_View answer, int count) {
    const auto kept = answer.first(std::min(answer.size(), static_cast<std::size_t>(count)));
    return {kept.begin(), kept.end()};
}

} // namespace

bool executes(Fault_Kind kind) noexcept {
    constexpr std::array without{Fault_Kind::Exception, Fault_Kind::Busy, Fault_Kind::Wrong_Echo,
                                 Fault_Kind::Unplug};
    return std::find(without.begin(), without.end(), kind) == without.end();
}

Bytes exceptionAnswer(Bytes_View request, int exception, const Sealer& sealed) {
    const std::array<std::uint8_t, 3> body{request[0], static_cast<std::uint8_t>(request[1] | 0x80U),
                                           static_cast<std::uint8_t>(exception)};
    return sealed(body);
}

Bytes replacedAnswer(const Fault_Rule& fault, Bytes_View request, const Sealer& sealed, Dice& dice) {
    switch (fault.kind) {
    case Fault_Kind::Exception:
        return exceptionAnswer(request, fault.value, sealed);
    case Fault_Kind::Busy:
        return exceptionAnswer(request, exceptionBusy, sealed);
    case Fault_Kind::Wrong_Echo:
        return wrongEcho(request, sealed, dice);
    default:
        return {};
    }
}

Damaged_Answer damagedAnswer(const Fault_Rule& fault, Bytes_View answer, const Sealer& sealed, Dice& dice,
                             const Envelope& envelope) {
    const auto same = [&envelope](Bytes frame) { return Damaged_Answer{envelope(frame), frame}; };
    const Bytes whole(answer.begin(), answer.end());
    switch (fault.kind) {
    case Fault_Kind::Silent:
        return {};
    case Fault_Kind::Crc:
        return same(wrongCheckSum(answer, dice));
    case Fault_Kind::Truncate:
        return {firstBytes(envelope(answer), fault.value), firstBytes(answer, fault.value)};
    case Fault_Kind::Noise:
        return {noiseThen(envelope(answer), fault.value, dice), whole};
    case Fault_Kind::Wrong_Unit:
        return same(wrongUnit(answer, sealed));
    case Fault_Kind::Short:
        return same(oneRegisterFewer(answer, sealed));
    default:
        return same(whole);
    }
}

} // namespace zorvane::simulator
