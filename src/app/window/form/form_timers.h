// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"

#include <QTimer>

#include <array>
#include <cstdint>
#include <functional>

namespace zorvane::app {

/// The timers of the main form that the logic starts and stops.
class Form_Timers final {
  public:
    Form_Timers();

    /// What a timer does at each tick. A timer without a handler ticks in vain.
    void onTick(Timer_Name timer, std::function<void()> handler);

    /// Enabling a timer that runs already changes nothing.
    void setEnabled(Timer_Name timer, bool enabled);
    [[nodiscard]] bool enabled(Timer_Name timer) const { return at(timer).isActive(); }
    /// One tick of it now, whether it runs or not.
    void fire(Timer_Name timer) const;
    /// In ms; 0 or less keeps the timer from running at all.
    void setInterval(Timer_Name timer, std::int64_t milliseconds);
    [[nodiscard]] std::int32_t interval(Timer_Name timer) const { return at(timer).interval(); }

  private:
    static constexpr std::size_t count = 8;

    [[nodiscard]] QTimer& at(Timer_Name timer) { return timers_.at(static_cast<std::size_t>(timer)); }
    [[nodiscard]] const QTimer& at(Timer_Name timer) const {
        return timers_.at(static_cast<std::size_t>(timer));
    }

    std::array<QTimer, count> timers_;
    std::array<std::function<void()>, count> handlers_;
};

} // namespace zorvane::app
