// SPDX-License-Identifier: MIT
#include "simulator/registers/cell_registers.h"

#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"
#include "values/run_time_failure.h"
#include "values/times.h"

#include <string>

namespace zorvane::simulator {

namespace {

constexpr int registerBits = 16;

std::uint16_t word(std::int32_t value) noexcept {
    return static_cast<std::uint16_t>(static_cast<std::uint32_t>(value) & 0xFFFFU);
}

std::int32_t wholeValue(std::string_view text) {
    std::int32_t value = 0;
    (void)ignoringFailure([&] { value = longValue(text); });
    return value;
}

std::int32_t secondsOf(std::string_view text) {
    std::int32_t seconds = 0;
    (void)ignoringFailure([&] { seconds = timeSeconds(text); });
    return seconds;
}

/// The bits of a sign-and-magnitude column; 0 for two's complement.
std::int32_t signMagnitudeBits(std::string_view negativeFormat) {
    if (!isNumeric(negativeFormat)) return 0;
    const std::int32_t bits = wholeValue(negativeFormat);
    return bits >= 1 && bits < registerBits ? bits : 0;
}

std::uint16_t encodedNumber(std::int32_t value, std::int32_t bits) {
    if (value >= 0 || bits == 0) return word(value);
    return word(static_cast<std::int32_t>(signBit(bits) - static_cast<std::int64_t>(value)));
}

/// Two characters of a text, the first in the high byte, blanks after the text's end.
std::uint16_t encodedText(std::string_view text, std::int32_t place) {
    const auto at = [&](std::size_t index) {
        return static_cast<unsigned char>(index < text.size() ? text[index] : ' ');
    };
    const auto first = static_cast<std::size_t>(place) * 2;
    return static_cast<std::uint16_t>(at(first) << 8U | at(first + 1));
}

std::uint16_t encodedByFormat(const Cell_Rec& cell, std::string_view negativeFormat, std::uint16_t old) {
    const std::string format = upperTrimmed(cell.Format);
    const std::int32_t value = wholeValue(cell.Value);
    if (cell.Has_Messages || format == "NUMERIC_UNSIGNED") return word(value);
    if (format == "TIME") return word(secondsOf(cell.Value));
    if (format == "TIMEMM") return word(word(value) * 60 + restSeconds(old));
    if (format == "TIMESS") return word(wholeMinutes(old) * 60 + value % 60);
    return encodedNumber(value, signMagnitudeBits(negativeFormat));
}

} // namespace

std::optional<Register_Span> registersOf(const Cell_Rec& cell) {
    if (const auto half = halfAddress(cell.Address)) {
        const std::int32_t number = wholeValue(half->number);
        return Register_Span{number, number};
    }
    if (!isNumeric(cell.Address)) return std::nullopt;
    const std::int32_t first = wholeValue(cell.Address);
    if (!cell.Is_Ascii_Range) return Register_Span{first, first};
    if (!isNumeric(cell.Address_End)) return std::nullopt;
    const std::int32_t last = wholeValue(cell.Address_End);
    return last < first ? std::nullopt : std::optional(Register_Span{first, last});
}

std::uint16_t encodedRegister(const Cell_Rec& cell, std::string_view negativeFormat, std::int32_t place,
                              std::uint16_t old) {
    if (const auto half = halfAddress(cell.Address)) {
        const std::int32_t byte = lowByte(wholeValue(cell.Value));
        return word(half->half == Register_Half::High ? withHighByte(old, byte) : withLowByte(old, byte));
    }
    if (cell.Is_Ascii_Range) return encodedText(cell.Value, place);
    return encodedByFormat(cell, negativeFormat, old);
}

std::optional<Live_Range> liveRangeOf(const Cell_Rec& cell, std::string_view negativeFormat) {
    if (cell.Is_Ascii_Range || halfAddress(cell.Address)) return std::nullopt;
    Live_Range range;
    if (cell.Has_Messages) {
        for (std::int32_t i = 1; i <= cell.Messages.upperBound(); ++i)
            range.codes.push_back(word(cell.Messages(i).Code));
        return range.codes.empty() ? std::nullopt : std::optional(range);
    }
    if (upperTrimmed(cell.Format) == "NUMERIC_UNSIGNED") range.fixedBits = 0;
    const std::int32_t bits = signMagnitudeBits(negativeFormat);
    if (bits > 0) range.fixedBits = word(~(signBit(bits) - 1));
    return range;
}

} // namespace zorvane::simulator
