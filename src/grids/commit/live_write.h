// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

namespace zorvane {

/// What differs between the live writes of a number, a time and a list choice. The cell is looked up again at
/// each step, since the waits between them serve events.
class Live_Write_Variant {
  public:
    virtual ~Live_Write_Variant() = default;
    /// Works out the register and starts the write; a cell without a register may start none.
    virtual void start() = 0;
    virtual void failed() = 0;
    virtual void succeeded() = 0;
    /// After the grid is back in the tab order.
    virtual void close() {}
};

/// Writes one register while online, and shows by the colours of the grid's current cell how that goes. It
/// returns once the write has ended and half a second more has passed; there is no time limit. A run-time
/// failure of a step ends it there, with the grid back in the tab order. When the document was closed or
/// replaced during a wait, the result says so: then the rest of the steps is left out, and the caller has
/// nothing to do either.
[[nodiscard]] Live_Write_Result writeLive(const Grid_Context& grids, Live_Write_Variant& variant);

/// Keeps the lower grid out of the tab order as long as it lives.
class Tab_Stop_Off {
  public:
    explicit Tab_Stop_Off(VSFlexGrid& grid) : grid_(grid) { grid_.setTabStop(false); }
    ~Tab_Stop_Off() { grid_.setTabStop(true); }
    Tab_Stop_Off(const Tab_Stop_Off&) = delete;
    Tab_Stop_Off(Tab_Stop_Off&&) = delete;
    Tab_Stop_Off& operator=(const Tab_Stop_Off&) = delete;
    Tab_Stop_Off& operator=(Tab_Stop_Off&&) = delete;

  private:
    VSFlexGrid& grid_;
};

} // namespace zorvane
