// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// Which half of a register an address names. The suffix is upper case only, and stands after a number.
enum class Register_Half { High, Low };

/// An address of the form `n/HI` or `n/LO`: the register's number as text, still to be converted, and the
/// half.
struct Half_Address {
    std::string_view number;
    Register_Half half;
};

/// Takes `1004/HI` apart; nothing for any other form.
[[nodiscard]] std::optional<Half_Address> halfAddress(std::string_view address);

/// R divided by 256, cut toward zero: for a register read as signed this is negative or 0 from 0x8000 on.
[[nodiscard]] constexpr std::int32_t highByte(std::int32_t value) noexcept { return value / 256; }
[[nodiscard]] constexpr std::int32_t lowByte(std::int32_t value) noexcept { return value & 255; }

/// A register with one half replaced. The new half isn't masked, so one above 255 spills over.
[[nodiscard]] constexpr std::int32_t withHighByte(std::int32_t value, std::int32_t high) noexcept {
    return high * 256 + (value & 255);
}
[[nodiscard]] constexpr std::int32_t withLowByte(std::int32_t value, std::int32_t low) noexcept {
    return (value & ~255) + low;
}

/// The sign bit of a sign-and-magnitude register of `bits` bits (1 to 15): 2 to the power bits - 1.
[[nodiscard]] std::int32_t signBit(std::int32_t bits) noexcept;

/// A sign-and-magnitude register back to its number: with 8 bits, 133 is -5. Without the sign bit it stands.
[[nodiscard]] std::int32_t fromSignMagnitude(std::int32_t value, std::int32_t bits) noexcept;

/// The two characters of a register, high byte first, an empty byte as "-". `value` is the signed reading.
[[nodiscard]] std::string asciiText(std::int32_t value);

/// The word for two characters, the first in the high byte. A code of 128 or more is failure 6.
[[nodiscard]] std::int32_t asciiWord(char first, char second);

} // namespace zorvane
