// SPDX-License-Identifier: MIT
#include "values/utf8.h"

#include <array>

namespace zorvane {

namespace {

using Byte = unsigned char;

/// The lowest code point that needs a lead byte and that many followers.
constexpr std::array<char32_t, 4> lowest = {0x0, 0x80, 0x800, 0x10000};

/// How many bytes follow a lead byte; -1 for a byte that can't lead.
int followers(Byte lead) noexcept {
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    if (lead >= 0xF0 && lead <= 0xF4) return 3;
    return -1;
}

} // namespace

char32_t takeUtf8(std::string_view text, std::size_t& at) noexcept {
    const auto lead = static_cast<Byte>(text[at++]);
    const int count = followers(lead);
    if (count < 0) return malformedUtf8;
    const std::string_view rest = text.substr(at, static_cast<std::size_t>(count));
    if (rest.size() != static_cast<std::size_t>(count)) return malformedUtf8;
    char32_t point = count == 0 ? lead : lead & (0x3FU >> count);
    for (const char c : rest) {
        const auto next = static_cast<Byte>(c);
        if ((next & 0xC0) != 0x80) return malformedUtf8;
        point = (point << 6) | (next & 0x3FU);
    }
    if (point < lowest[static_cast<std::size_t>(count)]) return malformedUtf8;
    at += rest.size();
    return point;
}

void appendUtf8(std::string& out, char32_t point) {
    constexpr std::array<Byte, 4> leads = {0x00, 0xC0, 0xE0, 0xF0};
    const int count = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    out += static_cast<char>(leads[static_cast<std::size_t>(count)] | (point >> (6 * count)));
    for (int k = count - 1; k >= 0; --k)
        out += static_cast<char>(0x80U | ((point >> (6 * k)) & 0x3FU));
}

} // namespace zorvane
