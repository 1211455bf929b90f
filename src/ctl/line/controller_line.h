// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "comm/modbus_control/units/unit_access.h"
#include "template/services/link_notice.h"

#include <functional>
#include <memory>
#include <string>

namespace zorvane::ctl {

/// The line to a controller that a call looks at. Nothing can be written through it.
class Controller_Line {
  public:
    virtual ~Controller_Line() = default;
    /// What is told of a template, before the port is opened.
    [[nodiscard]] virtual Link_Notice& notices() = 0;
    /// Why the port can't be opened, whole sentences (UTF-8); empty when it is open.
    [[nodiscard]] virtual std::string open() = 0;
    [[nodiscard]] virtual Unit_Reader& reader() = 0;
};

/// Makes the line of the settings, its port closed.
using Make_Controller_Line = std::function<std::unique_ptr<Controller_Line>(const Port_Settings& settings)>;

} // namespace zorvane::ctl
