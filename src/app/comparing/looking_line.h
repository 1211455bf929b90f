// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/modbus_link.h"
#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/qt/qt_port_finder.h"
#include "comm/modbus_control/units/unit_exchanges.h"

#include <functional>
#include <string>

namespace zorvane::app {

/// The line of the window's looks at a controller, on the port that the user has chosen. Nothing can be
/// written through it. Its waits serve the events of the program.
class Looking_Line {
  public:
    /// `cancelled` says whether somebody wants the end; `wait` serves events until its condition holds. Link
    /// and simulator must outlive it. The link's own port is closed as long as nothing goes on.
    Looking_Line(const Modbus_Link& link, Simulator& simulator, Unit_Exchanges::Wait wait,
                 std::function<bool()> cancelled);

    /// Why the port can't be opened, whole sentences in the code page; empty when it is open.
    [[nodiscard]] std::string open();
    void close() { exchanges_.close(); }
    [[nodiscard]] Unit_Reader& reader() { return exchanges_; }
    [[nodiscard]] const Port_Settings& settings() const { return settings_; }

  private:
    Port_Settings settings_;
    Qt_Link_Clock clock_;
    Qt_Any_Port anyPort_;
    Simulated_Port port_;
    Qt_Port_Finder finder_;
    Unit_Exchanges exchanges_;
};

} // namespace zorvane::app
