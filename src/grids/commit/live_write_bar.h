// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// What the controller did with one live write, told on the message bar where the status line can't be
/// trusted: a write that failed makes every later one look failed, until a download clears that.
class Live_Write_Watch {
  public:
    /// Of the write of the lower grid's current cell.
    explicit Live_Write_Watch(const Grid_Context& grids);

    /// Just before the write is started.
    void begin();
    /// As soon as the write has ended, before any further wait: another one may end meanwhile.
    void noteEnd();
    /// REQUIRES: the document is still there.
    void tell() const;

    [[nodiscard]] const Live_Write_Result& result() const noexcept { return result_; }
    /// The same when the document is gone.
    [[nodiscard]] Live_Write_Result dropped() const;

  private:
    Grid_Context grids_;
    Live_Write_Result result_;
    std::uint32_t endedBefore_ = 0;
    std::int32_t field_;
    std::int32_t row_;
    std::int32_t col_;
};

} // namespace zorvane
