// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_session.h"

#include "comm/modbus_control/line/network_texts.h"

namespace zorvane {

std::string Port_Session::presentName(const std::string& chosen) {
    if (chosen == chosen_ && identity_) {
        if (const auto same = finder_.port(name_); identityOf(same) == identity_) return same->path;
        if (auto path = pathOf(finder_.adapters(), *identity_, name_)) return *path;
    }
    chosen_ = chosen;
    identity_ = identityOf(finder_.port(chosen));
    return chosen;
}

Port_Opening Port_Session::open(const Port_Settings& settings) {
    if (settings.port.empty()) {
        return {false, "No port is chosen: choose one under Communication, Port Settings.", {}};
    }
    if (const std::string fault = settingsFault(settings); !fault.empty()) {
        return {false, fault + " Change it under Communication, Port Settings.", {}};
    }
    name_ = presentName(settings.port);
    return port_.open(name_, settings);
}

Port_Opening Port_Session::reopen(const Port_Settings& settings) {
    if (settings.port.empty() || !settingsFault(settings).empty()) return {};
    if (!identity_) {
        identity_ = identityOf(finder_.port(name_));
        return port_.open(name_, settings);
    }
    const auto path = pathOf(finder_.adapters(), *identity_, name_);
    if (!path) return {};
    Port_Opening opening = port_.open(*path, settings);
    if (opening.opened) name_ = *path; // an adapter's opening never goes on
    return opening;
}

std::string openingMessage(const std::string& port, const std::string& reason) {
    if (const auto network = networkPort(port)) return noConnectionText(*network) + "\n\n" + reason;
    if (onNetwork(port)) return "The port " + port + " can't be opened.\n\n" + reason;
    if (port.empty()) return "The serial port can't be opened.\n\n" + reason;
    return "The serial port " + port + " can't be opened.\n\n" + reason;
}

} // namespace zorvane
