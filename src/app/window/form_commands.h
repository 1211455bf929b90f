// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/menu_context.h"

namespace zorvane::app {

// One function for each part of the menu: it gives every entry its command. An entry whose feature isn't
// there yet is disabled. The rest of the menu is in `desktop_menus.h`.

void connectDocumentCommands(const Menu_Context& menu);      ///< "File" without its reports; a file dropped
void connectCommunicationCommands(const Menu_Context& menu); ///< "Communication"

} // namespace zorvane::app
