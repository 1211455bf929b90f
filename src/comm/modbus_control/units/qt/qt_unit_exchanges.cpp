// SPDX-License-Identifier: MIT
#include "comm/modbus_control/units/qt/qt_unit_exchanges.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <utility>

namespace zorvane {

Qt_Unit_Exchanges::Qt_Unit_Exchanges(const Port_Settings& settings, std::function<bool()> cancelled)
    : line_({port_.port(), clock_, finder_, serveEventsUntil, std::move(cancelled)}, settings) {}

void serveEventsUntil(const std::function<bool()>& condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

} // namespace zorvane
