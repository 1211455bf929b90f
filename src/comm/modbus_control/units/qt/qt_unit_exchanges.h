// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/qt/qt_port_finder.h"
#include "comm/modbus_control/units/unit_exchanges.h"

#include <functional>
#include <string>

namespace zorvane {

/// Single requests on a port of this computer or of its network, with all that belongs to them. Its waits
/// serve the events of the thread. REQUIRES: a QCoreApplication.
class Qt_Unit_Exchanges {
  public:
    /// `cancelled` says whether somebody wants the end; may be empty.
    explicit Qt_Unit_Exchanges(const Port_Settings& settings, std::function<bool()> cancelled = {});

    [[nodiscard]] Unit_Exchanges& line() { return line_; }
    /// What the system calls the adapter of the port; empty when it doesn't list it.
    [[nodiscard]] std::string adapter() { return adapterName(finder_.port(line_.settings().port)); }

  private:
    Qt_Link_Clock clock_;
    Qt_Any_Port port_;
    Qt_Port_Finder finder_;
    Unit_Exchanges line_;
};

/// Serves the events of the thread, and sleeps between them, until the condition holds.
void serveEventsUntil(const std::function<bool()>& condition);

} // namespace zorvane
