// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "survey/find/line_search.h"
#include "template/services/settings_store.h"

#include <optional>

namespace zorvane::survey {

/// The line settings with which a search found a controller last, by the window or by the terminal; section
/// "Find". None if there are none, or if they can't be read.
[[nodiscard]] std::optional<Line_Settings> lastGoodLine(Settings_Store& store);

/// Keeps those of the first controller that was found. A search that found none, or over a port that takes no
/// settings of a line, leaves what is there. The port's own settings stay as they are.
void keepLastGoodLine(Settings_Store& store, const Search_Report& report);

} // namespace zorvane::survey
