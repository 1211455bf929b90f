// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane {

/// The text of a number, everywhere in the system: an optional sign, digits with at most one point and digits
/// on at least one side of it, an optional exponent led by e or d. The point is the decimal sign in every
/// locale.

/// The value of the longest numeric beginning of a text, leading blanks skipped; 0 when there is none.
/// `12abc` is 12, `abc` is 0. A number too large for a double is infinite.
[[nodiscard]] double Val(std::string_view text);

/// Whether the whole text, blanks at both ends apart, is a number.
[[nodiscard]] bool isNumeric(std::string_view text) noexcept;

/// Rounds to the nearest whole number, halves to the even one. Out of 32 bits: failure 6.
[[nodiscard]] std::int32_t toLong(double value);

/// The same for 16 bits.
[[nodiscard]] std::int16_t toInteger(double value);

/// The value of a text that must be a number as a whole; anything else is failure 13.
[[nodiscard]] double strictDouble(std::string_view text);
[[nodiscard]] std::int32_t strictLong(std::string_view text);
[[nodiscard]] std::int16_t strictInteger(std::string_view text);

/// `Val` rounded to 32 bits.
[[nodiscard]] inline std::int32_t longValue(std::string_view text) { return toLong(Val(text)); }

/// A number as text: at most 15 significant digits, no exponent below 1e15, a leading 0, no "-0".
[[nodiscard]] std::string numberText(double value);
[[nodiscard]] std::string numberText(std::int32_t value);

/// A whole number with at least two digits, the sign in front: 5 is "05", -5 is "-05".
[[nodiscard]] std::string twoDigits(std::int32_t value);

} // namespace zorvane
