// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/traffic_listener.h"

namespace zorvane::survey::testing {

/// Unit 1 is asked for register 40101 and answers 7 after 20 ms.
[[nodiscard]] inline Exchange_Record exchange(Micros at) {
    Exchange_Record record;
    record.at = at;
    record.duration = 20000;
    record.unit = 1;
    record.firstRegister = 40101;
    record.wireAddress = 100;
    record.count = 1;
    record.values = {7};
    record.good = true;
    record.result = "good";
    record.sent = {1, 3, 0, 100, 0, 1, 0xC5, 0xD5};
    record.received = {1, 3, 2, 0, 7, 0xF9, 0x86};
    return record;
}

} // namespace zorvane::survey::testing
