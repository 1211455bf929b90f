// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_socket_port.h"

namespace zorvane {

void noticeSilentHost(std::intptr_t) {}

} // namespace zorvane
