// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_finder.h"

#include <algorithm>

namespace zorvane {

namespace {

bool named(const Port_Entry& entry, const std::string& name) {
    return entry.name == name || entry.path == name;
}

} // namespace

std::optional<Port_Identity> identityOf(const std::optional<Port_Entry>& port) {
    if (!port || !port->vendor || !port->product) return std::nullopt;
    return Port_Identity{port->serialNumber, *port->vendor, *port->product};
}

std::string adapterName(const std::optional<Port_Entry>& port) {
    if (!port) return {};
    if (port->serialNumber.empty()) return port->description;
    return port->description + (port->description.empty() ? "" : ", ") + "serial number " +
           port->serialNumber;
}

std::optional<Port_Entry> entryNamed(const std::vector<Port_Entry>& ports, const std::string& name) {
    const auto found =
        std::find_if(ports.begin(), ports.end(), [&](const Port_Entry& entry) { return named(entry, name); });
    return found == ports.end() ? std::nullopt : std::optional(*found);
}

std::optional<std::string> pathOf(const std::vector<Port_Entry>& ports, const Port_Identity& wanted,
                                  const std::string& oldName) {
    std::vector<const Port_Entry*> alike;
    for (const Port_Entry& entry : ports) {
        if (identityOf(entry) == wanted) alike.push_back(&entry);
    }
    for (const Port_Entry* entry : alike) {
        if (named(*entry, oldName)) return entry->path;
    }
    if (alike.size() != 1) return std::nullopt;
    return alike.front()->path;
}

} // namespace zorvane
