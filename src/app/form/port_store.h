// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "template/services/settings_store.h"

namespace zorvane::app {

/// The port settings that the user chose last, section "ModbusPort". What isn't stored, or can't be used,
/// stands at its default.
[[nodiscard]] Port_Settings storedPortSettings(Settings_Store& store);

void storePortSettings(Settings_Store& store, const Port_Settings& settings);

} // namespace zorvane::app
