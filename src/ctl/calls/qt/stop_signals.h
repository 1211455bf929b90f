// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/line/stop_wish.h"

#include <QSocketNotifier>

#include <array>
#include <functional>
#include <memory>

namespace zorvane::ctl {

/// While it lives, SIGINT (Ctrl+C), SIGTERM and SIGHUP (the terminal was closed) don't end the program: they
/// are kept, and `asked` is called from the event loop for each. SIGHUP stays ignored where it is, as under
/// nohup. There is one at a time.
class Stop_Signals : public Stop_Wish {
  public:
    /// `again` is true for a Ctrl+C after another signal: somebody doesn't want to wait any longer.
    using Asked = std::function<void(bool again)>;

    explicit Stop_Signals(Asked asked);
    ~Stop_Signals() override;
    Stop_Signals(const Stop_Signals&) = delete;
    Stop_Signals& operator=(const Stop_Signals&) = delete;

    /// The first signal that came. It is known from the moment it came, whether events were served or not.
    [[nodiscard]] const char* signal() const override;

  private:
    void take();

    Asked asked_;
    bool stopping_ = false; ///< a signal has come
    std::array<int, 2> pipe_{-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace zorvane::ctl
