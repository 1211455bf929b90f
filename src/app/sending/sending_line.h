// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/qt/qt_port_finder.h"
#include "comm/modbus_control/units/unit_exchanges.h"
#include "commission/desk/send_desk.h"
#include "commission/folder/port_lock.h"

#include <functional>
#include <optional>

namespace zorvane::app {

/// What the line of a send is made from.
struct Sending_Setup {
    Simulator& simulator;
    Port_Settings settings;
    std::string locksFolder;
    std::function<bool()> cancelled;
    std::function<void(Unit_Exchanges& line)> prepare; ///< with what the template says of it
};

/// The line of the window's sends, on the port that the user has chosen; the link's own is closed meanwhile.
class Sending_Line final : public commission::Desk_Line {
  public:
    explicit Sending_Line(Sending_Setup setup);

    [[nodiscard]] std::string open(std::int32_t unit, const Line_Settings& line) override;
    void close() override;
    [[nodiscard]] Unit_Writer& exchanges() override { return *exchanges_; }
    /// What the system calls the port's adapter; empty when it isn't listed.
    [[nodiscard]] std::string adapter() { return adapterName(finder_.port(setup_.settings.port)); }

  private:
    Sending_Setup setup_;
    Qt_Link_Clock clock_;
    Qt_Any_Port anyPort_;
    Simulated_Port port_;
    Qt_Port_Finder finder_;
    std::optional<Unit_Exchanges> exchanges_;
    commission::Port_Hold hold_;
};

} // namespace zorvane::app
