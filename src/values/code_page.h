// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zorvane {

/// Text is bytes in Windows-1252 (https://encoding.spec.whatwg.org/index-windows-1252.txt); a character is a
/// byte. "Blanks" are spaces (0x20) only.

/// Letter by letter; the length stays. Letters without a partner in the code page stay as they are.
[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] std::string lowerCase(std::string_view text);

/// Whether the upper case of `text` is `upper`; the same as comparing, without making a text.
[[nodiscard]] bool isUpperCaseOf(std::string_view upper, std::string_view text) noexcept;

/// The part of a text between its leading and its trailing blanks.
[[nodiscard]] std::string_view trimBlanks(std::string_view text) noexcept;

/// The trimmed upper case of a text: how most words are compared.
[[nodiscard]] inline std::string upperTrimmed(std::string_view text) { return upperCase(trimBlanks(text)); }

/// Whether a byte is one of the five that stand for no character: 0x81, 0x8D, 0x8F, 0x90, 0x9D.
[[nodiscard]] bool lacksCharacter(char byte) noexcept;

/// Windows-1252 to UTF-8. The bytes without a character stand for the control codes of the same number.
[[nodiscard]] std::string toUtf8(std::string_view text);

/// UTF-8 to Windows-1252. A character that the code page lacks becomes "?", and so does a malformed byte;
/// `whole`, if given, tells whether every character had a place.
[[nodiscard]] std::string fromUtf8(std::string_view text, bool* whole = nullptr);

} // namespace zorvane
