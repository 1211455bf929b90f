// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/menu_context.h"
#include "comm/modbus_control/qt/qt_link.h"
#include "comm/modbus_control/qt/qt_simulator.h"
#include "ui/forms/transfer_status_window.h"
#include "ui/line/line_windows.h"

#include <string>

namespace zorvane::app {

/// What the link's windows ask of the program. Nothing in it but the folder is owned.
struct Link_Sources {
    const Declara_Zorvane& document;
    const App_State& state;
    Settings_Store& settings;
    std::string applicationFolder; ///< of templates and of the simulated controller; no separator at its end
};

/// The link of the window with its own windows and the simulated controller.
class Window_Link {
  public:
    /// All that it is given outlives it.
    Window_Link(Link_Sources sources, Window_Form& mainForm);
    Window_Link(const Window_Link&) = delete;
    Window_Link& operator=(const Window_Link&) = delete;

    [[nodiscard]] Modbus_Link& link() { return link_.link(); }
    [[nodiscard]] ui::Line_Windows& windows() { return windows_; }
    [[nodiscard]] Qt_Simulator& simulator() { return simulator_; }

  private:
    [[nodiscard]] std::string openTemplate() const;
    [[nodiscard]] std::int32_t testRegister() const;

    Link_Sources sources_;
    Qt_Simulator simulator_;
    ui::Line_Windows windows_;
    Qt_Link link_;
};

/// The report of a transfer: its form, and the button of the status bar that opens it.
class Transfer_Log_Form {
  public:
    /// What `menu` names outlives it. `printLog` may be empty.
    Transfer_Log_Form(const Menu_Context& menu, ui::Transfer_Status_Window::Print_Log printLog);
    ~Transfer_Log_Form();
    Transfer_Log_Form(const Transfer_Log_Form&) = delete;
    Transfer_Log_Form& operator=(const Transfer_Log_Form&) = delete;

    [[nodiscard]] ui::Transfer_Status_Window& status() { return status_; }

  private:
    void enableReport(bool enabled);
    void showLogButton();

    const App_Context& app_;
    Window_Form& mainForm_;
    ui::Transfer_Status_Window status_;
};

} // namespace zorvane::app
