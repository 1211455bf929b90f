// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/framing.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// What is spoken with a port on a network.
enum class Network_Protocol {
    ModbusTcp,  ///< "tcp:": Modbus TCP
    RtuOverTcp, ///< "rtu+tcp:": the frames of a serial line, passed on as they are
    Rfc2217,    ///< "rfc2217:": the same, the line's settings set over the network too
};

/// A port on a network, as "tcp:plc7:502" names one.
struct Network_Port {
    Network_Protocol protocol = Network_Protocol::ModbusTcp;
    std::string host; ///< a name or a number, IPv6 without brackets
    std::uint16_t port = 0;

    bool operator==(const Network_Port&) const = default;
};

/// Whether the name of a port begins as that of one on a network, whatever follows.
[[nodiscard]] bool onNetwork(std::string_view name);
/// The port on a network of that name; none for a serial port's, and for one with something wrong in it.
[[nodiscard]] std::optional<Network_Port> networkPort(std::string_view name);
/// What is wrong with the name of a port on a network, in words with what to write instead; empty for a good
/// one and for a serial port's.
[[nodiscard]] std::string networkNameFault(std::string_view name);

/// "tcp:plc7:502", from which `networkPort` makes the same again.
[[nodiscard]] std::string nameOf(const Network_Port& port);
/// "plc7:502", "[fe80::1]:502".
[[nodiscard]] std::string hostAndPort(const Network_Port& port);
/// "Modbus TCP", "RTU over TCP", "RFC 2217".
[[nodiscard]] std::string_view protocolText(Network_Protocol protocol) noexcept;

/// How frames stand among the bytes of the port of that name.
[[nodiscard]] const Framing& framingOf(std::string_view name);
/// Whether the settings of the line (baud, parity, data and stop bits) are set at the port of that name.
[[nodiscard]] bool takesLineSettings(std::string_view name);

/// Which settings mean something at the port of that name.
struct Counting_Settings {
    bool line = true; ///< baud, parity, data and stop bits: set there, or telling how long frames take
    bool rts = true;  ///< RTS mode and the delay before sending
    bool echo = true;
};
[[nodiscard]] Counting_Settings countingSettings(std::string_view name);

} // namespace zorvane
