// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::simulator {

/// Function codes that the controller answers.
inline constexpr int functionReadRegisters = 3;
inline constexpr int functionWriteRegister = 6;
inline constexpr int functionWriteRegisters = 16;
/// Answered when the controller was given objects: what it is, of all that goes by this function.
inline constexpr int functionIdentification = 43;
inline constexpr int identificationType = 14;

[[nodiscard]] constexpr bool isWrite(int function) noexcept {
    return function == functionWriteRegister || function == functionWriteRegisters;
}

/// Exception codes (Modbus application protocol V1.1b3, section 7).
inline constexpr int exceptionIllegalFunction = 1;
inline constexpr int exceptionIllegalAddress = 2;
inline constexpr int exceptionIllegalValue = 3;
inline constexpr int exceptionBusy = 6;

/// The longest frame on a serial line, unit and check sum included.
inline constexpr std::size_t longestFrame = 256;
/// Unit, function and check sum.
inline constexpr std::size_t shortestFrame = 4;

/// What a frame says, on the way in or out.
struct Frame_Facts {
    int unit = 0;
    int function = 0;                     ///< without the bit that marks an exception
    std::optional<std::uint16_t> address; ///< on the wire
    std::optional<std::uint16_t> quantity;
    std::vector<std::uint16_t> values;
    std::optional<int> exception;
    bool byteCountFits = true; ///< function 16: the byte count is twice the quantity
};

/// How long the request is that these bytes begin, check sum included: nothing while too few are there to
/// tell, or when the function isn't one whose length is known.
[[nodiscard]] std::optional<std::size_t> requestLength(Bytes_View bytes) noexcept;

/// Whether a whole request asks what the controller is (function 43, type 14).
[[nodiscard]] bool asksForIdentification(Bytes_View frame) noexcept;

/// What a whole request says; for functions other than 3, 6 and 16 no more than unit and function.
/// REQUIRES: at least 4 bytes, and `requestLength` of them where it is known.
[[nodiscard]] Frame_Facts requestFacts(Bytes_View frame);

/// What an answer says, the address taken over from the request. Nothing for bytes that are no whole answer.
[[nodiscard]] std::optional<Frame_Facts> answerFacts(Bytes_View frame, const Frame_Facts& request);

} // namespace zorvane::simulator
