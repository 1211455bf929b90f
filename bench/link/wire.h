// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/line/port_settings.h"

#include <string>

namespace zorvane::bench {

/// A line of the benchmark: 8 data bits, even parity and one stop bit, so 11 bits a character.
struct Wire {
    int baud = 9600;
    bool paced = true; ///< false: bytes pass as fast as the pseudo-terminal takes them

    [[nodiscard]] Line_Settings line() const { return {baud, 'E', 8, 1}; }
    [[nodiscard]] std::string settingsText() const { return std::to_string(baud) + ",e,8,1"; }
    [[nodiscard]] std::string name() const { return paced ? std::to_string(baud) : "unpaced"; }
};

/// What no master can be faster than, in ms: the characters of request and answer, and two silences of 3.5
/// characters (1.75 ms each above 19200 baud), one before the answer and one before the next request.
[[nodiscard]] inline double wireLimitMs(const Wire& wire, const Rtu_Request& request) {
    const double characterMs = 1000.0 * bitsPerCharacter(wire.line()) / wire.baud;
    const double silenceMs = wire.baud > 19200 ? 1.75 : 3.5 * characterMs;
    const auto bytes = static_cast<double>(encodeRequest(request).size() + answerLength(request));
    return bytes * characterMs + 2 * silenceMs;
}

} // namespace zorvane::bench
