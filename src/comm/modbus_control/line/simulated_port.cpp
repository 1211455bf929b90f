// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/simulated_port.h"

namespace zorvane {

/// A pseudo-terminal has neither parity nor modem lines, and warnings about them would only puzzle.
Port_Opening Simulated_Port::open(const std::string& name, const Port_Settings& settings) {
    if (name != simulatedPortName) return port_.open(name, settings);
    const Simulator::Start started = simulator_.start(settings.slave);
    if (started.path.empty()) return {false, started.reason, {}};
    Port_Settings plain = settings;
    plain.rts = Rts_Mode::None;
    return port_.open(started.path, plain);
}

} // namespace zorvane
