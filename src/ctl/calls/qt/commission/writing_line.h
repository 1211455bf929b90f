// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/qt/qt_unit_exchanges.h"
#include "commission/folder/port_lock.h"
#include "ctl/calls/qt/stop_signals.h"
#include "ctl/document/subcommand.h"

#include <functional>
#include <memory>
#include <string>

namespace zorvane::ctl {

/// The line of one run. A first signal lets what is being sent end and be read back, a second Ctrl+C ends at
/// once; before anything is sent the first one does.
class Writing_Line {
  public:
    explicit Writing_Line(const Port_Settings& settings);

    /// Locks the port and opens it. What is wrong, for people; empty when all is well.
    [[nodiscard]] std::string open(const Call_Context& context);
    [[nodiscard]] Unit_Exchanges& exchanges() { return exchanges_.line(); }
    /// What the system calls the port's adapter; empty when it isn't listed.
    [[nodiscard]] std::string adapter() { return exchanges_.adapter(); }
    /// From here on a signal lets the present value end.
    void beginSending() { sending_ = true; }
    [[nodiscard]] bool stopAsked() const { return stop_.asked(); }

    /// Asks a question on the terminal and reads a register once a second meanwhile, so that no watchdog of
    /// the controller runs out. REQUIRES: the standard input is a terminal.
    [[nodiscard]] bool confirm(const Call_Context& context, const std::string& question, std::int32_t unit,
                               std::int32_t watched);

  private:
    bool again_ = false;
    bool sending_ = false;
    Stop_Signals stop_;
    Qt_Unit_Exchanges exchanges_;
    commission::Port_Hold hold_;
};

} // namespace zorvane::ctl
