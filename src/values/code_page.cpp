// SPDX-License-Identifier: MIT
#include "values/code_page.h"

#include "values/utf8.h"

#include <algorithm>
#include <array>

namespace zorvane {

namespace {

using Byte = unsigned char;

/// Code points of the bytes 0x80 to 0x9F; all other bytes are their own code points.
constexpr std::array<char16_t, 32> specials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr Byte upperByte(Byte c) {
    if (c >= 'a' && c <= 'z') return static_cast<Byte>(c - 0x20);
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<Byte>(c - 0x20);
    if (c == 0x9A || c == 0x9C || c == 0x9E) return static_cast<Byte>(c - 0x10);
    return c == 0xFF ? Byte{0x9F} : c;
}

constexpr std::array<Byte, 256> makeUpperTable() {
    std::array<Byte, 256> table{};
    for (unsigned c = 0; c < 256; ++c)
        table[c] = upperByte(static_cast<Byte>(c));
    return table;
}

constexpr std::array<Byte, 256> upperTable = makeUpperTable();

constexpr std::array<Byte, 256> makeLowerTable() {
    std::array<Byte, 256> table{};
    for (unsigned c = 0; c < 256; ++c)
        table[c] = static_cast<Byte>(c);
    for (unsigned c = 0; c < 256; ++c)
        if (upperTable[c] != c) table[upperTable[c]] = static_cast<Byte>(c);
    return table;
}

constexpr std::array<Byte, 256> lowerTable = makeLowerTable();

std::string mapped(std::string_view text, const std::array<Byte, 256>& table) {
    std::string result(text);
    for (char& c : result)
        c = static_cast<char>(table[static_cast<Byte>(c)]);
    return result;
}

/// The byte of a code point, or -1, also for a malformed one.
int byteOf(char32_t point) {
    if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) return static_cast<int>(point);
    if (point > 0xFFFF) return -1;
    const auto found = std::find(specials.begin(), specials.end(), static_cast<char16_t>(point));
    return found == specials.end() ? -1 : static_cast<int>(0x80 + (found - specials.begin()));
}

} // namespace

std::string upperCase(std::string_view text) { return mapped(text, upperTable); }

std::string lowerCase(std::string_view text) { return mapped(text, lowerTable); }

bool isUpperCaseOf(std::string_view upper, std::string_view text) noexcept {
    return std::equal(upper.begin(), upper.end(), text.begin(), text.end(), [](char wanted, char c) {
        return static_cast<Byte>(wanted) == upperTable[static_cast<Byte>(c)];
    });
}

std::string_view trimBlanks(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool lacksCharacter(char byte) noexcept {
    const auto number = static_cast<Byte>(byte);
    return number >= 0x80 && number < 0xA0 && specials.at(number - 0x80U) == number;
}

std::string toUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<Byte>(c);
        appendUtf8(out, byte >= 0x80 && byte <= 0x9F ? specials[byte - 0x80U] : byte);
    }
    return out;
}

std::string fromUtf8(std::string_view text, bool* whole) {
    std::string out;
    out.reserve(text.size());
    bool complete = true;
    for (std::size_t at = 0; at < text.size();) {
        const int byte = byteOf(takeUtf8(text, at));
        complete = complete && byte >= 0;
        out += byte < 0 ? '?' : static_cast<char>(byte);
    }
    if (whole != nullptr) *whole = complete;
    return out;
}

} // namespace zorvane
