// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane::app {

/// Opens a file by its name in a folder, or an address with no folder, with whatever the desktop has for it.
/// False when there is nothing. REQUIRES: a QGuiApplication.
[[nodiscard]] bool openOnDesktop(const std::string& operation, const std::string& file,
                                 const std::string& parameters, const std::string& folder);

} // namespace zorvane::app
