// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "comm/modbus_control/line/telnet.h"

#include <optional>
#include <vector>

namespace zorvane {

// The messages of the telnet option COM-PORT-OPTION (RFC 2217), by which a serial port on a network is set.

/// A part of the line's settings that the server confirms.
enum class Com_Port_Part : std::uint8_t {
    BaudRate = 1,
    DataSize = 2,
    Parity = 3,
    StopSize = 4,
};

/// The requests that set the line, one for each part, in the order of `Com_Port_Part`.
[[nodiscard]] std::vector<Telnet_Message> lineMessages(const Line_Settings& line);
/// No flow control; DTR on.
[[nodiscard]] std::vector<Telnet_Message> controlMessages();
[[nodiscard]] Telnet_Message rtsMessage(bool on);
/// Drops what the server holds of both directions.
[[nodiscard]] Telnet_Message purgeMessage();

/// What a server says a part of the line is set to now.
struct Com_Port_Setting {
    Com_Port_Part part = Com_Port_Part::BaudRate;
    std::uint32_t value = 0; ///< in the option's own numbers
};
/// None for a message that says something else.
[[nodiscard]] std::optional<Com_Port_Setting> settingTold(const Telnet_Message& message);
/// The number that stands for the part of the line in the option.
[[nodiscard]] std::uint32_t valueOf(const Line_Settings& line, Com_Port_Part part) noexcept;
/// "19200 baud", "8 data bits", "even parity", "1 stop bit"; "parity 9" for a number without a name.
[[nodiscard]] std::string settingText(const Com_Port_Setting& setting);

} // namespace zorvane
