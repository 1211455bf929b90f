#pragma once

#include <QSocketNotifier>

#include <array>
#include <functional>
#include <memory>

namespace zorvane {

/// While it lives, SIGINT (Ctrl+C) and SIGTERM don't end the program: they call `asked` from the event loop.
/// There is one at a time.
class Stop_Signals {
  public:
    explicit Stop_Signals(std::function<void()> asked);
    ~Stop_Signals();
    Stop_Signals(const Stop_Signals&) = delete;
    Stop_Signals& operator=(const Stop_Signals&) = delete;

  private:
    void take();

    std::function<void()> asked_;
    std::array<int, 2> pipe_{-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace zorvane
