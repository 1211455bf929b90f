// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <string>
#include <vector>

namespace zorvane::bench {

/// A Modbus master under measurement, on a line of its own.
class Engine {
  public:
    virtual ~Engine() = default;
    [[nodiscard]] virtual std::string name() const = 0;

    /// Makes `count` exchanges one right after the other and gives their times in ms, each from handing the
    /// request over to having the answer. Throws `std::runtime_error` for an exchange that fails or gives
    /// other values than the controller has.
    [[nodiscard]] virtual std::vector<double> exchange(const Rtu_Request& request, int count) = 0;
};

/// Register `address` of the measured controller holds this, unless it was written.
[[nodiscard]] constexpr std::uint16_t expectedValue(int address) noexcept {
    return static_cast<std::uint16_t>(address * 7 + 1);
}

} // namespace zorvane::bench
