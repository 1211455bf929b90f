// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"
#include "comm/modbus_control/line/port_finder.h"
#include "template/services/asker.h"

#include <optional>
#include <string>

namespace zorvane {

/// How often a port that is gone is looked for.
inline constexpr std::int64_t reopenPeriodMs = 500;

/// Opens the chosen port, and finds its adapter again after it was unplugged.
class Port_Session {
  public:
    Port_Session(Byte_Port& port, Port_Finder& finder) : port_(port), finder_(finder) {}

    /// Opens the port of the settings; an adapter that it was opened on before is looked for under another
    /// name too. The result's reason is for the user.
    [[nodiscard]] Port_Opening open(const Port_Settings& settings);
    /// Opens the same adapter again, under another name too; another path of a port without identity is never
    /// taken.
    [[nodiscard]] Port_Opening reopen(const Port_Settings& settings);

  private:
    [[nodiscard]] std::string presentName(const std::string& chosen);

    Byte_Port& port_;
    Port_Finder& finder_;
    std::optional<Port_Identity> identity_;
    std::string chosen_; ///< the port of the settings when the identity was taken
    std::string name_;   ///< under which it was opened last
};

/// The message of a port that couldn't be opened.
[[nodiscard]] std::string openingMessage(const std::string& port, const std::string& reason);

} // namespace zorvane
