// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"

#include <string>

namespace zorvane::survey {

/// A serial line that is only listened to: opened for reading, with no operation that sends a byte or touches
/// RTS or DTR. It tells its listener from the event loop only, never from within a call.
class Listening_Port {
  public:
    virtual ~Listening_Port() = default;
    virtual void setListener(Byte_Port_Listener* listener) = 0;

    /// Opens the port of that name or path. REQUIRES: it is closed.
    [[nodiscard]] virtual Port_Opening open(const std::string& name, const Line_Settings& line) = 0;
    virtual void close() = 0;
    /// What has come in and wasn't told yet; the listener isn't told of it any more.
    [[nodiscard]] virtual Byte_Array takeInput() = 0;
};

} // namespace zorvane::survey
