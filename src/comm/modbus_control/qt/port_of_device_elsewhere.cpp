// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/port_of_device.h"

namespace zorvane {

std::optional<Port_Entry> portOfDevice(Port_Finder& finder, const std::string& name) {
    return entryNamed(finder.ports(), name);
}

std::vector<Port_Entry> listedAdapters(Port_Finder& finder, const std::string&) { return finder.ports(); }

} // namespace zorvane
