// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/routed_port.h"
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "comm/modbus_control/qt/qt_serial_port.h"
#include "comm/modbus_control/qt/qt_socket_port.h"

namespace zorvane {

/// Whatever port this computer can open by name, serial or on a network. REQUIRES: a QCoreApplication.
class Qt_Any_Port {
  public:
    [[nodiscard]] Byte_Port& port() { return routed_; }

  private:
    Qt_Link_Clock clock_;
    Qt_Serial_Port serial_;
    Qt_Socket_Port socket_;
    Routed_Port routed_{serial_, socket_, clock_};
};

} // namespace zorvane
