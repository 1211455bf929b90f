// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace zorvane::app {

/// While it lives, a wish of the system that the program ends (SIGTERM, SIGINT, SIGHUP) doesn't end it at
/// once: it calls `asked` from the event loop. A signal that the program was started to ignore stays ignored.
/// There is one at a time; on systems without signals it does nothing.
class End_Signals {
  public:
    explicit End_Signals(std::function<void()> asked);
    ~End_Signals();
    End_Signals(const End_Signals&) = delete;
    End_Signals& operator=(const End_Signals&) = delete;

  private:
    class Listener;
    std::unique_ptr<Listener> listener_;
};

} // namespace zorvane::app
