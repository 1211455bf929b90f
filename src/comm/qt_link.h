#pragma once

#include "comm/modbus_link.h"
#include "comm/qt_link_clock.h"
#include "comm/qt_port_finder.h"
#include "comm/qt_serial_port.h"

namespace zorvane {

/// The link on a serial port of this computer, with all that belongs to it. REQUIRES: a QCoreApplication,
/// whose event loop drives it.
///
///     Qt_Link assembly(settings, asker);
///     modbus_control& link = assembly.link();
class Qt_Link {
  public:
    /// The asker and the windows must outlive it; without windows the link has none.
    Qt_Link(const Port_Settings& settings, Asker& asker, Link_Windows* windows = nullptr);

    [[nodiscard]] Modbus_Link& link() { return link_; }
    [[nodiscard]] Port_Finder& finder() { return finder_; }

  private:
    Qt_Link_Clock clock_;
    Qt_Serial_Port port_;
    Qt_Port_Finder finder_;
    No_Link_Windows noWindows_;
    Modbus_Link link_;
};

} // namespace zorvane
