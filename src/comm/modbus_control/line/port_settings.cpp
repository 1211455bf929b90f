// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_settings.h"

#include "comm/modbus_control/line/network_port.h"

#include <array>
#include <cctype>
#include <charconv>

namespace zorvane {

namespace {

constexpr std::int64_t microsInSecond = 1000000;

std::optional<std::int32_t> wholeNumber(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<std::array<std::string_view, 4>> fourParts(std::string_view text) {
    std::array<std::string_view, 4> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t comma = text.find(',');
        const bool last = i + 1 == parts.size();
        if (last != (comma == std::string_view::npos)) return std::nullopt;
        parts[i] = text.substr(0, comma);
        if (!last) text.remove_prefix(comma + 1);
    }
    return parts;
}

bool within(std::int32_t value, std::int32_t low, std::int32_t high) { return value >= low && value <= high; }

std::string range(const char* what, std::int32_t value, std::int32_t low, std::int32_t high) {
    return std::string(what) + " is " + std::to_string(value) + ", it must be from " + std::to_string(low) +
           " to " + std::to_string(high) + ".";
}

std::string lineFault(const Line_Settings& line) {
    if (!within(line.baud, 300, 921600)) return range("The baud rate", line.baud, 300, 921600);
    if (line.parity != 'N' && line.parity != 'E' && line.parity != 'O')
        return "The parity must be N, E or O.";
    if (!within(line.dataBits, 7, 8)) return range("The number of data bits", line.dataBits, 7, 8);
    if (!within(line.stopBits, 1, 2)) return range("The number of stop bits", line.stopBits, 1, 2);
    return {};
}

} // namespace

std::optional<Line_Settings> parseLineSettings(std::string_view text) {
    const auto parts = fourParts(text);
    if (!parts || (*parts)[1].size() != 1) return std::nullopt;
    const auto baud = wholeNumber((*parts)[0]);
    const auto dataBits = wholeNumber((*parts)[2]);
    const auto stopBits = wholeNumber((*parts)[3]);
    if (!baud || !dataBits || !stopBits) return std::nullopt;
    const auto letter = static_cast<unsigned char>((*parts)[1][0]);
    return Line_Settings{*baud, static_cast<char>(std::toupper(letter)), *dataBits, *stopBits};
}

std::string formatLineSettings(const Line_Settings& line) {
    const auto letter = static_cast<unsigned char>(line.parity);
    return std::to_string(line.baud) + "," + static_cast<char>(std::tolower(letter)) + "," +
           std::to_string(line.dataBits) + "," + std::to_string(line.stopBits);
}

std::optional<Rts_Mode> parseRtsMode(std::string_view text) {
    if (text == "none") return Rts_Mode::None;
    if (text == "rts") return Rts_Mode::HighOnSend;
    if (text == "rs485") return Rts_Mode::KernelRs485;
    return std::nullopt;
}

std::string_view rtsModeText(Rts_Mode mode) noexcept {
    switch (mode) {
    case Rts_Mode::None:
        return "none";
    case Rts_Mode::HighOnSend:
        return "rts";
    case Rts_Mode::KernelRs485:
        return "rs485";
    }
    return "none";
}

std::string settingsFault(const Port_Settings& settings) {
    if (std::string fault = networkNameFault(settings.port); !fault.empty()) return fault;
    if (!within(settings.slave, 1, 247)) return range("The slave number", settings.slave, 1, 247);
    if (std::string fault = lineFault(settings.line); !fault.empty()) return fault;
    if (!within(settings.retries, 0, 20)) return range("The number of retries", settings.retries, 0, 20);
    if (!within(settings.timeOutMs, 1, 60000))
        return range("The time-out in ms", settings.timeOutMs, 1, 60000);
    if (!within(settings.txDelayMs, 0, 1000)) return range("The TX delay in ms", settings.txDelayMs, 0, 1000);
    return {};
}

std::string portNumberText(std::string_view port) {
    if (const auto network = networkPort(port)) return hostAndPort(*network);
    const std::string_view name = port.substr(port.find_last_of("/\\") + 1);
    for (const std::string_view stem : {"COM", "com", "ttyS"}) {
        if (name.substr(0, stem.size()) != stem) continue;
        const std::string_view digits = name.substr(stem.size());
        if (wholeNumber(digits) && digits[0] != '-') return std::string(digits);
    }
    return std::string(name);
}

std::string portOfNumber(std::int32_t number) {
#ifdef _WIN32
    return "COM" + std::to_string(number);
#else
    return "ttyS" + std::to_string(number);
#endif
}

std::int32_t bitsPerCharacter(const Line_Settings& line) noexcept {
    return 1 + line.dataBits + (line.parity == 'N' ? 0 : 1) + line.stopBits;
}

std::int64_t wireTime(const Line_Settings& line, std::size_t characters) noexcept {
    const std::int64_t bits = static_cast<std::int64_t>(characters) * bitsPerCharacter(line);
    return (bits * microsInSecond + line.baud - 1) / line.baud;
}

std::int64_t frameSilence(const Line_Settings& line) noexcept {
    constexpr std::int64_t silenceAboveLimit = 1750;
    if (line.baud > 19200) return silenceAboveLimit;
    return (wireTime(line, 7) + 1) / 2;
}

} // namespace zorvane
