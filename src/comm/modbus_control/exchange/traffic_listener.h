// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/line/link_clock.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// One try of a request, as the monitor shows it.
struct Exchange_Record {
    Micros at = 0;       ///< monotonic time of the first byte sent
    Micros duration = 0; ///< until the try ended
    std::int32_t unit = 0;
    Function_Code function = Function_Code::ReadHoldingRegisters;
    std::int32_t firstRegister = 0;    ///< as the template numbers it
    std::int32_t wireAddress = 0;      ///< the same on the wire
    std::int32_t count = 0;            ///< registers
    std::vector<std::uint16_t> values; ///< read or written
    bool good = false;
    std::string result; ///< in words
    Byte_Array sent;
    Byte_Array received;
};

/// Bytes that belong to no exchange.
struct Stray_Record {
    Micros at = 0;
    Byte_Array bytes;
    std::string what;
};

/// Sees all traffic of the link, in the order in which it happens. The next request is on its way already.
class Traffic_Listener {
  public:
    virtual ~Traffic_Listener() = default;
    virtual void exchangeSeen(const Exchange_Record& exchange) = 0;
    virtual void straySeen(const Stray_Record& stray) = 0;
    /// The port was opened, lost or found again, or can't do something.
    virtual void portNoted(Micros at, const std::string& text) = 0;
};

} // namespace zorvane
