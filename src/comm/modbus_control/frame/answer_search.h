// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

namespace zorvane {

/// What the bytes received so far amount to.
struct Finding {
    enum class Verdict {
        Incomplete, ///< no valid answer in it, more bytes may bring one
        Found,      ///< a whole valid answer
        Damaged,    ///< a whole answer by its head, but its CRC is wrong
    };
    Verdict verdict = Verdict::Incomplete;
    std::size_t offset = 0; ///< of the answer found
    std::size_t length = 0;
    Answer answer;
    /// Some bytes, from an earlier offset on for an answer found, may still grow into another answer.
    bool partial = false;
};

/// Looks for a whole valid answer at every offset from `from` on, so that noise before it doesn't hide it.
/// The earliest one counts.
[[nodiscard]] Finding findAnswer(const Rtu_Request& request, Byte_View received, std::size_t from = 0);

/// The fewest bytes that must still come before a valid answer can be whole, at least 1. An answer of which
/// only two bytes are there, or none, may be an exception's.
[[nodiscard]] std::size_t leastMissing(const Rtu_Request& request, Byte_View received, std::size_t from = 0);

/// Names the test that failed, for bytes in which no valid answer was found.
[[nodiscard]] Answer_Fault whyNoAnswer(const Rtu_Request& request, Byte_View received, std::size_t from = 0);

/// The end of the first copy of the request itself in the bytes received: an adapter's local echo.
[[nodiscard]] std::optional<std::size_t> endOfEcho(Byte_View request, Byte_View received,
                                                   std::size_t from = 0);

} // namespace zorvane
