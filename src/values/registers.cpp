// SPDX-License-Identifier: MIT
#include "values/registers.h"

#include "values/numbers.h"
#include "values/run_time_failure.h"

namespace zorvane {

std::optional<Half_Address> halfAddress(std::string_view address) {
    const std::size_t slash = address.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const std::string_view number = address.substr(0, slash);
    const std::string_view suffix = address.substr(slash + 1);
    if (!isNumeric(number)) return std::nullopt;
    if (suffix == "HI") return Half_Address{number, Register_Half::High};
    if (suffix == "LO") return Half_Address{number, Register_Half::Low};
    return std::nullopt;
}

std::int32_t signBit(std::int32_t bits) noexcept { return 1 << (bits - 1); }

std::int32_t fromSignMagnitude(std::int32_t value, std::int32_t bits) noexcept {
    const std::int32_t sign = signBit(bits);
    return (value & sign) != 0 ? (value - sign) * -1 : value;
}

std::string asciiText(std::int32_t value) {
    const std::int32_t high = highByte(value);
    const std::int32_t low = lowByte(value);
    std::string text;
    text += high >= 1 && high <= 255 ? static_cast<char>(high) : '-';
    text += low != 0 ? static_cast<char>(low) : '-';
    return text;
}

std::int32_t asciiWord(char first, char second) {
    const auto high = static_cast<unsigned char>(first);
    const auto low = static_cast<unsigned char>(second);
    if (high >= 128 || low >= 128) throw Run_Time_Failure(Failure::Overflow);
    return high * 256 + low;
}

} // namespace zorvane
