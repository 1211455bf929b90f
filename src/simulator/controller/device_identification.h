// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"

#include <cstdint>
#include <map>
#include <string>
#include <variant>

namespace zorvane::simulator {

/// The objects by which a controller tells who it is, by number: 0 the maker's name, 1 the product code, 2
/// the revision; 0x80 and above are the maker's own. Texts of at most 244 bytes.
using Device_Objects = std::map<std::uint8_t, std::string>;

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
