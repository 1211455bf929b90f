// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <cstddef>

namespace zorvane::survey {

// How long a frame is by its own first bytes, as "MODBUS Application Protocol Specification V1.1b3" lays out
// the requests and answers of functions 1 to 8, 11, 15 to 17, 22, 23 and 43/14, and their exceptions.

/// The length of a request that begins so. 0: none does. More than `head` has: so many bytes must be there
/// before more can be said, or before it is whole.
[[nodiscard]] std::size_t requestLength(Byte_View head) noexcept;

/// The same for an answer, exceptions included.
[[nodiscard]] std::size_t answerLength(Byte_View head) noexcept;

/// Whether request and answer of the function look alike, so that only what came before tells them apart.
[[nodiscard]] bool answersWithItself(std::uint8_t function) noexcept;

} // namespace zorvane::survey
