#pragma once

#include "app/window/window_frame.h"

namespace zorvane {

/// Shows the lines of the frame's message bar in its window, and gives their buttons what they do. Both
/// outlive the frame's last line.
void connectMessageBar(Window_Frame& frame, Event_Edge& edge);

} // namespace zorvane
