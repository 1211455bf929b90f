// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/menu_context.h"
#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/qt/qt_port_finder.h"
#include "survey/desk/known_template.h"
#include "survey/qt/qt_listening_port.h"
#include "ui/line/line_windows.h"

#include <vector>

namespace zorvane::app {

/// "Find Controllers..." and "Listen..." of the menu "Communication". Both are off while online.
class Survey_Commands {
  public:
    /// Gives the entries their commands. All must outlive it.
    Survey_Commands(const Menu_Context& menu, Modbus_Link& link, ui::Line_Windows& windows,
                    Simulator& simulator);
    Survey_Commands(const Survey_Commands&) = delete;
    Survey_Commands& operator=(const Survey_Commands&) = delete;

  private:
    void find();
    void listen();
    void showEnabled();
    /// That of the open document; none without one.
    [[nodiscard]] std::vector<survey::Known_Template> templates() const;

    const Menu_Context& menu_;
    Modbus_Link& link_;
    ui::Line_Windows& windows_;
    Simulator& simulator_;
    Qt_Any_Port anyPort_;
    Simulated_Port port_;
    survey::Qt_Listening_Port listeningPort_;
    Qt_Port_Finder finder_;
    Qt_Link_Clock clock_;
};

} // namespace zorvane::app
