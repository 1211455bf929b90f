// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/link_clock.h"

namespace zorvane {

/// An alarm of Qt_Link_Clock, as exact as the system allows.
[[nodiscard]] std::unique_ptr<Alarm> makeQtAlarm(std::function<void()> ring);

} // namespace zorvane
