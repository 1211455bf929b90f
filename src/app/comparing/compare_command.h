// SPDX-License-Identifier: MIT
#pragma once

#include "app/compare/comparison_desk.h"
#include "app/desktop/event_edge.h"
#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/modbus_link.h"
#include "commission/plan/chosen_cells.h"
#include "reports/bands/active_report.h"

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace zorvane::ui {
class Compare_Window;
class File_Dialog;
} // namespace zorvane::ui

namespace zorvane::app {

/// What the window of a comparison needs of the main form and of the program.
struct Comparing_Services {
    const App_Context& app;
    Event_Edge& edge;
    const Modbus_Link& link;
    Simulator& simulator;
    const commission::Run_Store& runs;
    Difference_Marks& marks;
    const Text_Metrics& metrics;
    std::function<void()> finishEdit; ///< takes the text of an edit in progress
    std::function<QWidget*()> dialogParent;
    std::function<void(const commission::Chosen_Cells& chosen)> sendChanges; ///< opens "Send Changes"
    std::function<void(ActiveReport& report, const std::string& title)> print;
    std::function<std::string(ActiveReport& report)> exportTo; ///< what became of it; "" when cancelled
    /// Runs the window; whatever drives the program in a test replaces this.
    std::function<void(ui::Compare_Window& window)> run;
};

/// "Compare...": opens the window of a comparison of the open document with `right`, else with what was
/// chosen last, and returns when it is closed. REQUIRES: a document is open, and the link is closed.
void compareDocument(const Comparing_Services& services, const std::optional<Side_Choice>& right = {});

} // namespace zorvane::app
