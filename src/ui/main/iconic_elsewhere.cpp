// SPDX-License-Identifier: MIT
#include "ui/main/iconic.h"

namespace zorvane::ui {

bool askForIconic(const QWidget& /*window*/) { return false; }

} // namespace zorvane::ui
