// SPDX-License-Identifier: MIT
#pragma once

#include "values/run_time_failure.h"

#include <functional>
#include <utility>

namespace zorvane::app {

/// Unwinds a handler whose program has ended while it waited. It isn't a failure, and nothing drops it.
struct Program_Ended {};

/// The edge at which everything that happens enters the program: menu entries, timers, the grids' events. A
/// handler runs inside `run`, and may run inside another one that waits.
class Event_Edge {
  public:
    /// What becomes of a run-time failure that nothing else handled.
    std::function<void(const Run_Time_Failure& failure)> onFailure;

    template <class Handler> void run(Handler&& handler) {
        if (ended_) return;
        try {
            std::forward<Handler>(handler)();
        } catch (const Run_Time_Failure& failure) {
            if (onFailure) onFailure(failure);
        } catch (const Program_Ended&) {
            // The handlers below it on the stack find out at their own waits.
        }
    }

    /// From now on no handler runs, and whoever waits is unwound.
    void end() noexcept { ended_ = true; }
    [[nodiscard]] bool ended() const noexcept { return ended_; }
    /// For whoever waits.
    void throwIfEnded() const {
        if (ended_) throw Program_Ended{};
    }

  private:
    bool ended_ = false;
};

} // namespace zorvane::app
