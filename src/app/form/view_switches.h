// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/settings_store.h"

#include <string>

namespace zorvane::app {

// What the menu "View" switches on and off. Everything is off at first and kept for the next start.

inline const std::string fillsRoomSwitch = "LastColumn";    ///< the last column takes the room that is left
inline const std::string darkGroundsSwitch = "DarkGrounds"; ///< pale grounds are dark on a dark desktop

[[nodiscard]] bool viewSwitch(Settings_Store& settings, const std::string& name);
void storeViewSwitch(Settings_Store& settings, const std::string& name, bool on);

} // namespace zorvane::app
