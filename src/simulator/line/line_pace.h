// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string_view>

namespace zorvane::simulator {

/// How a serial line is set: "9600,n,8,1" is baud, parity (N, E, O), data bits (7, 8) and stop bits (1, 2).
struct Line_Settings {
    int baud = 9600;
    char parity = 'N'; ///< upper case
    int dataBits = 8;
    int stopBits = 1;

    bool operator==(const Line_Settings&) const = default;
};

/// The four parts of a settings text, letter case aside; nothing for any other text. Baud 300 to 921600.
[[nodiscard]] std::optional<Line_Settings> parseLineSettings(std::string_view text);

/// Start bit, data bits, parity bit and stop bits: 10 for 8N1, 11 for 8E1 and 8N2.
[[nodiscard]] int bitsPerCharacter(const Line_Settings& settings) noexcept;

/// How long bytes take on the line. An unpaced line takes no time at all.
class Line_Pace {
  public:
    Line_Pace() = default;
    Line_Pace(int baud, int bitsPerCharacter) : baud_(baud), bits_(bitsPerCharacter) {}

    [[nodiscard]] bool paced() const noexcept { return baud_ > 0; }

    /// Never rounded down: a line isn't faster than its baud rate.
    [[nodiscard]] std::chrono::nanoseconds wireTime(std::size_t bytes) const noexcept;

    /// The silence that ends a frame: 3.5 characters up to 19200 baud, 1.75 ms above (Modbus over serial
    /// line, V1.02, 2.5.1.1, https://modbus.org/docs/Modbus_over_serial_line_V1_02.pdf).
    [[nodiscard]] std::chrono::nanoseconds silence() const noexcept;

  private:
    int baud_ = 0; ///< 0: unpaced
    int bits_ = 10;
};

} // namespace zorvane::simulator
