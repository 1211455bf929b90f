// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/event_edge.h"
#include "grids/fill/grid_context.h"
#include "ui/main/main_window.h"

namespace zorvane::app {

/// Gives the two grids of the window their handlers, and the lower one the descriptions of its cells. All
/// three outlive the grids' last event. A failure in a commit stops that commit with a message; one in
/// another handler is the edge's.
void connectGrids(ui::Main_Window& window, const Grid_Context& grids, Event_Edge& edge);

} // namespace zorvane::app
