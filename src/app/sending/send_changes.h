// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/event_edge.h"
#include "app/form/app_context.h"
#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/modbus_link.h"
#include "commission/plan/chosen_cells.h"
#include "ui/base/fixed_dialog.h"

#include <functional>
#include <string>

namespace zorvane::app {

/// What sending needs of the main form and of the program.
struct Sending_Services {
    const App_Context& app;
    Event_Edge& edge;
    Modbus_Link& link;
    Simulator& simulator;
    std::function<void()> finishEdit;             ///< takes the text of an edit in progress
    std::function<void(bool enabled)> enableForm; ///< the main form takes input from now on, or doesn't
    std::function<QWidget*()> dialogParent;
    ui::Ask_User ask;
};

/// "Send Changes...": opens the window of a send for the open document, and returns when it is closed.
/// `chosen` are the cells that get a tick; all that differ when none is named. The port is the user's; its
/// settings and the panels stay as they are. REQUIRES: a document is open, and the link is closed.
void sendChanges(const Sending_Services& services, const commission::Chosen_Cells& chosen);

} // namespace zorvane::app
