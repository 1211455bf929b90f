// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/child_process.h"

namespace zorvane {

void endWithParent(QProcess&) {}

} // namespace zorvane
