// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/modbus_link.h"
#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/qt/qt_port_finder.h"

namespace zorvane {

/// The link on a port of this computer or of its network, with all that belongs to it. REQUIRES: a
/// QCoreApplication, whose event loop drives it.
///
///     Qt_Link assembly(settings, asker);
///     modbus_control& link = assembly.link();
class Qt_Link {
  public:
    /// The other parts must outlive it; without windows or a simulator the link has none.
    Qt_Link(const Port_Settings& settings, Asker& asker, Link_Windows* windows = nullptr,
            Simulator* simulator = nullptr);

    [[nodiscard]] Modbus_Link& link() { return link_; }

  private:
    Qt_Link_Clock clock_;
    No_Simulator noSimulator_;
    Qt_Any_Port anyPort_;
    Simulated_Port port_;
    Qt_Port_Finder finder_;
    No_Link_Windows noWindows_;
    Modbus_Link link_;
};

} // namespace zorvane
