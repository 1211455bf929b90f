#pragma once

#include "comm/port_settings.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zorvane {

/// The section of the settings store that keeps the port.
inline const std::string portSection = "ModbusPort";

/// The text of a key, empty when the store has none.
using Stored_Text = std::function<std::string(const std::string& key)>;

/// The port settings as they were kept; a text that is missing or unusable leaves the usual value.
[[nodiscard]] Port_Settings portSettingsFrom(const Stored_Text& stored);

/// Keys and texts to keep.
[[nodiscard]] std::vector<std::pair<std::string, std::string>>
portSettingTexts(const Port_Settings& settings);

} // namespace zorvane
