// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_link.h"

namespace zorvane {

Qt_Link::Qt_Link(const Port_Settings& settings, Asker& asker, Link_Windows* windows, Simulator* simulator)
    : port_(anyPort_.port(), simulator != nullptr ? *simulator : noSimulator_),
      link_({port_, clock_, finder_, asker, windows != nullptr ? *windows : noWindows_}, settings) {}

} // namespace zorvane
