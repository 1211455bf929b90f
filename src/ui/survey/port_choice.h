// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_finder.h"

#include <QComboBox>

namespace zorvane::ui {

/// A list of the ports that are there now, into which any name or path may be typed.
class Port_Choice final : public QComboBox {
  public:
    Port_Choice(Port_Finder& finder, const std::string& chosen);

    [[nodiscard]] std::string port() const { return currentText().trimmed().toStdString(); }
};

} // namespace zorvane::ui
