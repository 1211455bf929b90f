// SPDX-License-Identifier: MIT
#include "simulator/line/line_pace.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace zorvane::simulator {

namespace {

constexpr int lowestBaud = 300;
constexpr int highestBaud = 921600;
constexpr int fastestWithCharacterSilence = 19200;

std::optional<int> wholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<std::array<std::string_view, 4>> fourParts(std::string_view text) {
    std::array<std::string_view, 4> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t comma = text.find(',');
        if ((comma == std::string_view::npos) != (i + 1 == parts.size())) return std::nullopt;
        parts[i] = text.substr(0, comma);
        text = comma == std::string_view::npos ? std::string_view{} : text.substr(comma + 1);
    }
    return parts;
}

std::optional<char> parityLetter(std::string_view text) {
    constexpr std::string_view letters = "NEO";
    constexpr std::string_view small = "neo";
    if (text.size() != 1) return std::nullopt;
    const std::size_t place =
        letters.find(text[0]) != std::string_view::npos ? letters.find(text[0]) : small.find(text[0]);
    if (place == std::string_view::npos) return std::nullopt;
    return letters[place];
}

} // namespace

std::optional<Line_Settings> parseLineSettings(std::string_view text) {
    const auto parts = fourParts(text);
    if (!parts) return std::nullopt;
    const auto baud = wholeNumber((*parts)[0]);
    const auto parity = parityLetter((*parts)[1]);
    const auto dataBits = wholeNumber((*parts)[2]);
    const auto stopBits = wholeNumber((*parts)[3]);
    if (!baud || *baud < lowestBaud || *baud > highestBaud || !parity) return std::nullopt;
    if (dataBits != 7 && dataBits != 8) return std::nullopt;
    if (stopBits != 1 && stopBits != 2) return std::nullopt;
    return Line_Settings{*baud, *parity, *dataBits, *stopBits};
}

int bitsPerCharacter(const Line_Settings& settings) noexcept {
    return 1 + settings.dataBits + (settings.parity == 'N' ? 0 : 1) + settings.stopBits;
}

std::chrono::nanoseconds Line_Pace::wireTime(std::size_t bytes) const noexcept {
    if (!paced()) return {};
    const auto nanoBits = static_cast<std::int64_t>(bytes) * bits_ * 1'000'000'000;
    return std::chrono::nanoseconds((nanoBits + baud_ - 1) / baud_);
}

std::chrono::nanoseconds Line_Pace::silence() const noexcept {
    if (!paced()) return {};
    if (baud_ > fastestWithCharacterSilence) return std::chrono::microseconds(1750);
    return (wireTime(7) + std::chrono::nanoseconds(1)) / 2;
}

} // namespace zorvane::simulator
