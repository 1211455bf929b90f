// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// What switches an RS-485 driver to sending.
enum class Rts_Mode {
    None,       ///< the adapter itself, or RS-232
    HighOnSend, ///< the link raises RTS while it sends
    KernelRs485 ///< the driver of the system does it
};

/// The line's part of the settings.
struct Line_Settings {
    std::int32_t baud = 9600;
    char parity = 'N'; ///< N, E or O
    std::int32_t dataBits = 8;
    std::int32_t stopBits = 1;

    bool operator==(const Line_Settings&) const = default;
};

/// What the user chooses for the link.
struct Port_Settings {
    /// A name as "ttyUSB0" or "COM3", a path, or a port on a network as "tcp:plc7:502"; empty until one is
    /// chosen.
    std::string port;
    std::int32_t slave = 1;
    Line_Settings line;
    std::int32_t retries = 2;     ///< further tries after the first
    std::int32_t timeOutMs = 500; ///< from the request's last byte
    Rts_Mode rts = Rts_Mode::None;
    std::int32_t txDelayMs = 0; ///< between RTS and the first byte
    bool adapterEchoes = false; ///< the adapter repeats what is sent

    bool operator==(const Port_Settings&) const = default;
};

/// "9600,n,8,1": baud, parity letter in either case, data bits, stop bits. None for any other form, whatever
/// the ranges say.
[[nodiscard]] std::optional<Line_Settings> parseLineSettings(std::string_view text);
/// The same with a small parity letter.
[[nodiscard]] std::string formatLineSettings(const Line_Settings& line);

/// "none", "rts" or "rs485".
[[nodiscard]] std::optional<Rts_Mode> parseRtsMode(std::string_view text);
[[nodiscard]] std::string_view rtsModeText(Rts_Mode mode) noexcept;

/// The first thing wrong with the settings in words for the user, empty when they are usable. A missing port
/// isn't looked at, it shows when the port is opened; the name of one on a network is.
[[nodiscard]] std::string settingsFault(const Port_Settings& settings);

/// The port's number where its name ends in one as the platform counts (COM3, ttyS2), host and port of one on
/// a network ("plc7:502"), else its short name.
[[nodiscard]] std::string portNumberText(std::string_view port);
/// The port that the platform counts so: COM3 on Windows, else ttyS3.
[[nodiscard]] std::string portOfNumber(std::int32_t number);

/// Bits of one character on the wire, start and stop bits included.
[[nodiscard]] std::int32_t bitsPerCharacter(const Line_Settings& line) noexcept;
/// Microseconds that so many characters take on the wire, rounded up.
[[nodiscard]] std::int64_t wireTime(const Line_Settings& line, std::size_t characters) noexcept;
/// The silence between frames: 3.5 characters up to 19200 baud, 1750 us above ("MODBUS over Serial Line
/// Specification and Implementation Guide V1.02", 2.5.1.1).
[[nodiscard]] std::int64_t frameSilence(const Line_Settings& line) noexcept;

} // namespace zorvane
