// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/registers/register_map.h"
#include "simulator/wire/bytes.h"

#include <cstddef>
#include <variant>

namespace zorvane::simulator {

/// The longest object that fits into an answer.
inline constexpr std::size_t longestObject = 244;

/// The answer, without check sum, to a request to read the device identification (function 43, type 14), or
/// the number of an exception. `request` is a whole frame of those two. Objects that don't fit into one
/// answer are left for the next; whoever has objects at all has 0, 1 and 2, which are empty where no text is
/// given (Modbus application protocol V1.1b3, 6.21,
/// https://modbus.org/docs/Modbus_Application_Protocol_V1_1b3.pdf).
[[nodiscard]] std::variant<Bytes, int> identificationAnswer(const Device_Objects& objects,
                                                            Bytes_View request);

} // namespace zorvane::simulator
