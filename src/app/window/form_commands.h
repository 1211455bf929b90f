// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/menu_context.h"

namespace zorvane::app {

// One function for each part of the menu: it gives the entries their commands. "View", "Windows" and "Help"
// are connected by `desktop_menus.h`, reports by `report_windows.h`, and what opens windows of its own by its
// room.

void connectDocumentCommands(const Menu_Context& menu);      ///< files; one that was dropped
void connectCommunicationCommands(const Menu_Context& menu); ///< transfers, port, monitor

} // namespace zorvane::app
