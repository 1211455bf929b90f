// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// "01 03 00 6B": bytes as pairs of hexadecimal digits.
[[nodiscard]] std::string hexPairs(Byte_View bytes);

/// An exception in words, "BUSY" for exception 6. The names are those of "MODBUS Application Protocol
/// Specification V1.1b3", 7.
[[nodiscard]] std::string exceptionText(std::uint8_t code);

/// Text of the last answer: empty for a good answer and for none, else the exception in words.
[[nodiscard]] std::string responseText(const Try_Result& result);

/// "Tx: " and the frame in hex pairs.
[[nodiscard]] std::string transmitLine(const Try_Result& result);
/// "Rx: " and the bytes received, or the reason why there are none.
[[nodiscard]] std::string receiveLine(const Try_Result& result);

/// How the try ended, for the monitor: "good", the exception, or the failed test; then what came before the
/// answer.
[[nodiscard]] std::string resultText(const Try_Result& result);

/// Why a request for no register at all, from that one on, can't go out.
[[nodiscard]] std::string noRegistersText(std::int64_t first);

/// Why a request for these registers, as the template numbers them, can't go out; empty when it can.
/// `addressBase` is taken off a number to get its address on the wire.
[[nodiscard]] std::string unreachableText(std::int32_t unit, std::int64_t first, std::size_t count,
                                          std::int32_t addressBase);

} // namespace zorvane
