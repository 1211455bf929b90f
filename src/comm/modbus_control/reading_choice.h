// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"
#include "comm/modbus_control/scan/read_parts.h"

#include <cstdint>
#include <optional>

namespace zorvane {

/// Registers that are to be read, and what is known of the way there.
struct Wanted_Reading {
    const Scan_Frame& frame;
    std::uint8_t unit = 1;
    std::uint16_t address = 0; ///< of the frame's first register on the wire
    const Kept_Together& together;
    /// The last request, when this is a further try. It may have been for other registers.
    std::optional<Rtu_Request> last{};
    /// No other request of the reader's has the frame's count.
    bool onlyOfItsShape = false;
};

/// The request that reads the frame, or its beginning. A further try repeats the request before: the answer
/// to the first says the same. Otherwise the frame goes whole, or in a part of a count that no outstanding
/// answer has, or it waits until none is outstanding (`Line_Care::Quiet`).
[[nodiscard]] Rtu_Request chooseReading(Rtu_Transaction& transaction, const Wanted_Reading& wanted);

/// Whether a controller that hands out no parts of a block says so.
[[nodiscard]] bool saysNotInParts(std::uint8_t exception) noexcept;

} // namespace zorvane
