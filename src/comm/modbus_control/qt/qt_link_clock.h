// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/link_clock.h"

namespace zorvane {

/// The steady clock, with alarms that ring from the thread's Qt event loop: to some ten microseconds on Linux
/// (timerfd), to a millisecond elsewhere. REQUIRES: a QCoreApplication.
class Qt_Link_Clock final : public Link_Clock {
  public:
    [[nodiscard]] Micros now() const override;
    [[nodiscard]] std::unique_ptr<Alarm> makeAlarm(std::function<void()> ring) override;
};

} // namespace zorvane
