// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zorvane::simulator {

/// Bytes that came in one after another: a whole request with a right check sum, or bytes that are none.
struct Arrival {
    Bytes frame;              ///< as on a serial line, whatever it came in
    Instant wireBegin;        ///< when the first byte began to pass on the line
    Instant wireEnd;          ///< when the last byte had passed
    std::string broken;       ///< empty for a request; else "truncated", "bad CRC", "noise" or "wrong length"
    Bytes passed;             ///< the bytes themselves
    std::uint16_t number = 0; ///< of the transaction on Modbus TCP
};

/// How what a client sends is cut into requests, and in what an answer's frame goes out.
class Line_Framing {
  public:
    virtual ~Line_Framing() = default;
    virtual void feed(Bytes_View bytes, Instant now) = 0;
    /// The next request, or the next bytes given up; nothing when more must come first.
    [[nodiscard]] virtual std::optional<Arrival> next(Instant now) = 0;
    /// When the bytes there are given up, if nothing else comes.
    [[nodiscard]] virtual std::optional<Instant> deadline() const = 0;
    virtual void clear() = 0;
    /// The bytes in which the frame of an answer to the request goes out.
    [[nodiscard]] virtual Bytes enveloped(Bytes_View frame, const Arrival& request) const = 0;
};

} // namespace zorvane::simulator
