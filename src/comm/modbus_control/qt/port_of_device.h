// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_finder.h"

namespace zorvane {

/// The port of this name, on Linux by what the kernel tells of the device, which needs no list of all ports;
/// elsewhere the one of that name in the finder's list.
[[nodiscard]] std::optional<Port_Entry> portOfDevice(Port_Finder& finder, const std::string& name);

} // namespace zorvane
