// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_finder.h"

namespace zorvane {

/// The serial ports that the system lists. Pseudo-terminals are not among them.
class Qt_Port_Finder final : public Port_Finder {
  public:
    [[nodiscard]] std::vector<Port_Entry> ports() override;
    [[nodiscard]] std::vector<Port_Entry> adapters() override;
    [[nodiscard]] std::optional<Port_Entry> port(const std::string& name) override;
};

} // namespace zorvane
