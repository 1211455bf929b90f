// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <cstdint>
#include <string>

namespace zorvane {

// What a serial port needs of the operating system beyond Qt's QSerialPort. Elsewhere than on Linux these do
// nothing and say so.

// What is said of a port that is missing, or that another program holds.
inline constexpr const char* portIsGone = "No such port: plug the adapter in, or choose another port.";
inline constexpr const char* portIsBusy =
    "Busy: another program has the port open. Close that program and try again.";

/// Why the system won't open the port, in words with what to do. `systemText` is its own wording.
[[nodiscard]] std::string whyNotOpened(const std::string& name, bool notFound, const std::string& systemText);

/// Whether the path leads to a pseudo-terminal, which has no parity, no speed and no modem lines.
[[nodiscard]] bool isPseudoTerminal(const std::string& name);

/// Lets the kernel switch the RS-485 driver (TIOCSRS485). False where the driver can't.
[[nodiscard]] bool enableKernelRs485(std::intptr_t handle, std::int32_t delayMs);

/// Asks the driver to hand bytes over at once (ASYNC_LOW_LATENCY): USB adapters hold them up to 16 ms
/// otherwise. Drivers that can't ignore it.
void askLowLatency(std::intptr_t handle);

/// Reads what the system holds of the line, without waiting for more. Nothing where it can't.
[[nodiscard]] Byte_Array takeWaitingInput(std::intptr_t handle);

/// Whether the line is still there after a read that brought nothing: it hasn't hung up, its settings can be
/// asked for, it announces no bytes that it doesn't have, and its name leads to a port. False where the
/// system can't say. `name` as for opening.
[[nodiscard]] bool lineStands(std::intptr_t handle, const std::string& name);

/// Whether the system holds bytes of the line that nobody has read yet (FIONREAD).
[[nodiscard]] bool inputWaits(std::intptr_t handle);

} // namespace zorvane
