// SPDX-License-Identifier: MIT
#include "app/desktop/display.h"

#include <QtGlobal>

#include <algorithm>
#include <array>

namespace zorvane::app {

bool hasDisplay() {
    constexpr std::array names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

} // namespace zorvane::app
