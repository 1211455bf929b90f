// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/document_form.h"
#include "template/services/settings_store.h"

#include <string>

namespace zorvane::app {

/// Reads the four stored values of a window, `current` standing in for those that were never stored. One that
/// isn't a number, a negative size or a place beyond the screen puts all four to the fallback. Any other
/// number beyond single precision is failure 6.
[[nodiscard]] Twips_Rect storedRectangle(Settings_Store& store, const std::string& section,
                                         const Twips_Rect& current, const Twips_Rect& screen);

/// Whether any of a window's four values was ever stored.
[[nodiscard]] bool hasStoredRectangle(Settings_Store& store, const std::string& section);

/// The rectangle in place of one that can't be used.
inline constexpr Twips_Rect fallbackRectangle{.left = 3210, .top = 3075, .width = 6990, .height = 7380};

/// Writes a window's four values as text of single precision.
void storeRectangle(Settings_Store& store, const std::string& section, const Twips_Rect& place);

/// Writes a window's four values as text of whole numbers.
void storeWholeRectangle(Settings_Store& store, const std::string& section, const Twips_Rect& place);

/// A number of single precision as the store keeps it.
[[nodiscard]] std::string singleText(double value);

inline const std::string mainWindowSection = "MainWindow";
inline const std::string monitorSection = "ModbusDialog";
inline const std::string previewSection = "PrintDialog";

} // namespace zorvane::app
