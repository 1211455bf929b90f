// SPDX-License-Identifier: MIT
#include "app/comparing/looking_line.h"

#include "values/code_page.h"

#include <utility>

namespace zorvane::app {

Looking_Line::Looking_Line(const Modbus_Link& link, Simulator& simulator, Unit_Exchanges::Wait wait,
                           std::function<bool()> cancelled)
    : settings_(link.portSettings()), port_(anyPort_.port(), simulator),
      exchanges_({port_, clock_, finder_, std::move(wait), std::move(cancelled)}, settings_) {
    exchanges_.SetTimings(link.templatePauseMs(), link.templateTimeOutMs());
    exchanges_.SetAddressBase(link.addressBase());
}

std::string Looking_Line::open() {
    if (settings_.port.empty()) return "No port is chosen. Choose one in Communication > Port Settings.";
    const Port_Opening opening = exchanges_.open();
    if (opening.opened) return {};
    return fromUtf8("The port " + settings_.port + " can't be opened. " + opening.reason);
}

} // namespace zorvane::app
