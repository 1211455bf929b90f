// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_link_clock.h"

#include "comm/modbus_control/qt/qt_alarm.h"

#include <chrono>
#include <utility>

namespace zorvane {

Micros Qt_Link_Clock::now() const {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(since).count();
}

std::unique_ptr<Alarm> Qt_Link_Clock::makeAlarm(std::function<void()> ring) {
    return makeQtAlarm(std::move(ring));
}

} // namespace zorvane
