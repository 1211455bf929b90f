// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

#include <functional>

namespace zorvane {

/// "&Modbus Monitor": opens the monitor window, where the user last had it if that is known, or brings it
/// forward when it is hidden. It never closes it.
void separador4_Click(const Comm_Context& comm);

/// Opens the monitor window where the user last had it, if that is known.
void showMonitorWindow(const Comm_Context& comm);

/// "Port Settings": the link's own dialog, whether the link is open or closed.
void MNU_Port_Settings_Click(const Comm_Context& comm);

/// A tick, every 500 ms for the life of the main form: greys the monitor's menu entry while the monitor is on
/// screen, and shows the slave number in panel 3.
void TMR_Verifica_monitor_Timer(const Comm_Context& comm);

/// What the bench buttons do outside the link.
struct Toolbar_Actions {
    std::function<void()> MNU_Open_Click;
    std::function<void()> showAcercade;
    std::function<void()> endProgram;
};

/// The bench procedure behind buttons by number: 1 open, 4 start, 5 stop, 8 about, 10 end. No control raises
/// it.
void PRO_Toolbar_Boton(const Comm_Context& comm, const Toolbar_Actions& actions, int button);

} // namespace zorvane
