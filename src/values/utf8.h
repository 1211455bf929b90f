// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zorvane {

/// What `takeUtf8` gives for a byte that begins no whole character.
inline constexpr char32_t malformedUtf8 = 0xFFFFFFFF;

/// Reads the character at `at` and moves past it. A byte that begins none, an overlong form included, is
/// passed over alone. Code points of surrogates and beyond 10FFFF come as their bytes say. REQUIRES: at <
/// text.size().
[[nodiscard]] char32_t takeUtf8(std::string_view text, std::size_t& at) noexcept;

/// Appends the bytes of a code point; the inverse of `takeUtf8`.
void appendUtf8(std::string& out, char32_t point);

} // namespace zorvane
