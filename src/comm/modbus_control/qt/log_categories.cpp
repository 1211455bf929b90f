// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/log_categories.h"

namespace zorvane {

Q_LOGGING_CATEGORY(portLog, "zorvane.port", QtWarningMsg)
Q_LOGGING_CATEGORY(simulatorLog, "zorvane.simulator", QtWarningMsg)

} // namespace zorvane
