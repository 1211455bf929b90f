// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/network_port.h"

#include <string>

namespace zorvane {

/// Why a connection wasn't made.
enum class Connect_Fault {
    HostUnknown,
    Refused,     ///< the host says that nothing listens there
    NoAnswer,    ///< not even that
    Unreachable, ///< the network has no way to the host
    Other,
};

/// The fault in words with what to do. `systemText` is the system's own wording, shown for `Other`.
[[nodiscard]] std::string connectFaultText(const Network_Port& port, Connect_Fault fault,
                                           const std::string& systemText);
/// How a connection ended that had been made; `systemText` empty: the other end closed it.
[[nodiscard]] std::string connectionLostText(const Network_Port& port, const std::string& systemText);
/// "No connection to plc7:502 (Modbus TCP)."
[[nodiscard]] std::string noConnectionText(const Network_Port& port);
/// What is known of a name before anything was tried, in one line.
[[nodiscard]] std::string networkHint(const Network_Port& port);

} // namespace zorvane
