// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/answer_search.h"

namespace zorvane {

/// How requests and answers stand among the bytes: between silences and with a check sum on a serial line,
/// with a number and a length on a network. It keeps nothing of what it saw, so one object serves every port.
class Framing {
  public:
    virtual ~Framing() = default;

    /// The request's frame, ready to go out.
    [[nodiscard]] virtual Byte_Array encode(const Rtu_Request& request) const = 0;
    /// Looks for a whole valid answer from `from` on; noise before it doesn't hide it. The earliest one
    /// counts.
    [[nodiscard]] virtual Finding find(const Rtu_Request& request, Byte_View received,
                                       std::size_t from) const = 0;
    /// Names the test that failed, for bytes in which no valid answer was found.
    [[nodiscard]] virtual Answer_Fault whyNoAnswer(const Rtu_Request& request, Byte_View received,
                                                   std::size_t from) const = 0;

    /// Whether a request has a number of its own that its answer repeats. Where it has none, the bytes pass a
    /// serial line: they take time there, an adapter may echo them, and other masters may be heard.
    [[nodiscard]] virtual bool numbersRequests() const = 0;
};

/// Frames of Modbus RTU.
class Rtu_Framing final : public Framing {
  public:
    [[nodiscard]] Byte_Array encode(const Rtu_Request& request) const override {
        return encodeRequest(request);
    }
    [[nodiscard]] Finding find(const Rtu_Request& request, Byte_View received,
                               std::size_t from) const override {
        return findAnswer(request, received, from);
    }
    [[nodiscard]] Answer_Fault whyNoAnswer(const Rtu_Request& request, Byte_View received,
                                           std::size_t from) const override {
        return zorvane::whyNoAnswer(request, received, from);
    }
    [[nodiscard]] bool numbersRequests() const override { return false; }
};

} // namespace zorvane
