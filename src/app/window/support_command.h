// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/menu_context.h"
#include "comm/modbus_control/exchange/last_traffic.h"

namespace zorvane {
class Modbus_Link;
} // namespace zorvane

namespace zorvane::app {

/// "Copy Report for Support": puts the report into the clipboard, and says so in the message bar. All of it
/// outlives the menu.
void connectSupportReport(const Menu_Context& menu, const Modbus_Link& link, const Last_Traffic& traffic);

} // namespace zorvane::app
