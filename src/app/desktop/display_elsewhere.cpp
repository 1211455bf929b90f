// SPDX-License-Identifier: MIT
#include "app/desktop/display.h"

namespace zorvane::app {

bool hasDisplay() { return true; }

} // namespace zorvane::app
