// SPDX-License-Identifier: MIT
#include "app/sending/sending_line.h"

#include "comm/modbus_control/units/qt/qt_unit_exchanges.h"

#include <utility>

namespace zorvane::app {

Sending_Line::Sending_Line(Sending_Setup setup)
    : setup_(std::move(setup)), port_(anyPort_.port(), setup_.simulator) {}

std::string Sending_Line::open(std::int32_t unit, const Line_Settings& line) {
    Port_Settings settings = setup_.settings;
    settings.slave = unit;
    settings.line = line;
    if (settings.port != simulatedPortName) { // that one is this program's own
        hold_ = commission::Native_Port_Locks(setup_.locksFolder).take(settings.port, unit);
        if (!hold_.held) return hold_.why;
    }
    exchanges_.emplace(Unit_Exchanges::Services{port_, clock_, finder_, serveEventsUntil, setup_.cancelled},
                       settings);
    if (setup_.prepare) setup_.prepare(*exchanges_);
    const Port_Opening opening = exchanges_->open();
    if (opening.opened) return {};
    std::string why = settings.port.empty()
                          ? "No port is chosen. Choose one in Communication > Port Settings."
                          : "The port " + settings.port + " can't be opened. " + opening.reason;
    close();
    return why;
}

void Sending_Line::close() {
    exchanges_.reset();
    hold_ = {};
}

} // namespace zorvane::app
