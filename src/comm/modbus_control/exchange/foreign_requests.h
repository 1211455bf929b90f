// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <optional>
#include <string>

namespace zorvane {

/// A request that another master sent, as bytes on the line.
struct Foreign_Request {
    Rtu_Request request; ///< of another function than 3, 6 and 16: as one of function 3
    std::uint8_t function = 0;
    std::size_t offset = 0; ///< where it begins
    std::size_t length = 0;
};

/// The first whole request in the bytes from `from` on: the length of its function and a good CRC ("MODBUS
/// Application Protocol Specification V1.1b3", 6.1 to 6.6, 6.11 and 6.12). A read's request can't be
/// mistaken for an answer. A write of one register looks like its own answer, so it is told only where
/// `singleWrites` says that no answer to one can be on the line.
[[nodiscard]] std::optional<Foreign_Request> findForeignRequest(Byte_View received, std::size_t from,
                                                                bool singleWrites);

/// "Another master is on the line: it asks unit 1 for 10 registers from address 0 on (function 3)."
[[nodiscard]] std::string foreignRequestText(const Foreign_Request& foreign);

} // namespace zorvane
