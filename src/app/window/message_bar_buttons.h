// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/window_form.h"

namespace zorvane::app {

/// Shows the lines of the main form's message bar in its window, and gives their buttons what they do. Both
/// outlive the main form's last line.
void connectMessageBar(Window_Form& mainForm, Event_Edge& edge);

} // namespace zorvane::app
