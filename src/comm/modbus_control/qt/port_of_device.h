// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_finder.h"

namespace zorvane {

/// The port of this name, on Linux by what the kernel tells of the device, which needs no list of all ports;
/// elsewhere the one of that name in the finder's list.
[[nodiscard]] std::optional<Port_Entry> portOfDevice(Port_Finder& finder, const std::string& name);

/// The ports of USB adapters, on Linux by what the kernel tells of all terminals in that folder: the list of
/// all ports asks the device manager for each of them, which takes tens of ms, and has no serial numbers
/// where none runs. Elsewhere the finder's list.
[[nodiscard]] std::vector<Port_Entry> listedAdapters(Port_Finder& finder,
                                                     const std::string& terminals = "/sys/class/tty");

} // namespace zorvane
