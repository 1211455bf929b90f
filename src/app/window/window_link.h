// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/menu_context.h"
#include "comm/modbus_control/qt/qt_link.h"
#include "comm/modbus_control/qt/qt_simulator.h"
#include "ui/forms/transfer_status_window.h"
#include "ui/line/line_windows.h"

#include <optional>
#include <string>

namespace zorvane::app {

/// The link of the window with all that belongs to it: its own windows, the simulated controller, the report
/// of a transfer.
class Window_Link {
  public:
    /// `app` and `mainForm` must outlive it; `app` isn't read before `connect`. `programFolder` is where the
    /// simulated controller lies, UTF-8.
    Window_Link(const App_Context& app, Window_Form& mainForm, const std::string& programFolder,
                const Port_Settings& settings);
    Window_Link(const Window_Link&) = delete;
    Window_Link& operator=(const Window_Link&) = delete;

    /// Connects what shows the report of a transfer.
    void connect(const Menu_Context& menu, ui::Transfer_Status_Window::Print_Log printLog = {});

    [[nodiscard]] Modbus_Link& link() { return link_.link(); }
    [[nodiscard]] ui::Line_Windows& windows() { return windows_; }
    [[nodiscard]] Qt_Simulator& simulator() { return simulator_; }
    /// Only after `connect`.
    [[nodiscard]] ui::Transfer_Status_Window& status() { return *status_; }

  private:
    [[nodiscard]] std::string openTemplate() const;
    [[nodiscard]] std::int32_t testRegister() const;
    void enableReport(bool enabled);
    void showLogButton();

    const App_Context& app_;
    Window_Form& mainForm_;
    Qt_Simulator simulator_;
    ui::Line_Windows windows_;
    Qt_Link link_;
    std::optional<ui::Transfer_Status_Window> status_;
};

} // namespace zorvane::app
