// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/framing.h"

namespace zorvane {

// Frames of Modbus TCP, as "MODBUS Messaging on TCP/IP Implementation Guide V1.0b" (3.1.3) defines them: a
// number that the answer repeats, the protocol's number 0, the length of what follows, then unit, function
// and data as on a serial line. There is no check sum.

inline constexpr std::size_t mbapHead = 6;   ///< bytes before the unit: number, protocol, length
inline constexpr std::size_t mbapLeast = 3;  ///< length of an answer's unit, function and one byte of data
inline constexpr std::size_t mbapMost = 254; ///< length of unit, function and the most data (3.1.3 and 4.1)

/// The request's frame under its number.
[[nodiscard]] Byte_Array encodeMbap(const Rtu_Request& request);

/// A frame in a stream of bytes.
struct Mbap_Frame {
    std::size_t offset = 0;
    std::size_t length = 0;   ///< of all of it; 0 while its head isn't whole
    std::uint16_t number = 0; ///< 0 while that isn't whole
    Byte_View body;           ///< unit, function and data; empty while it isn't whole
};

/// The first frame at `from` or after it, whole or not; bytes that begin none are passed over. None where no
/// byte may begin one.
[[nodiscard]] std::optional<Mbap_Frame> nextMbapFrame(Byte_View received, std::size_t from = 0);

/// Frames of Modbus TCP. A whole frame under the request's number is its answer, right or wrong; one under
/// another number is passed over as a whole, whatever its data look like.
class Mbap_Framing final : public Framing {
  public:
    [[nodiscard]] Byte_Array encode(const Rtu_Request& request) const override { return encodeMbap(request); }
    [[nodiscard]] Finding find(const Rtu_Request& request, Byte_View received,
                               std::size_t from) const override;
    [[nodiscard]] Answer_Fault whyNoAnswer(const Rtu_Request& request, Byte_View received,
                                           std::size_t from) const override;
    [[nodiscard]] bool numbersRequests() const override { return true; }
};

} // namespace zorvane
