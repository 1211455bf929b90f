// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/scan/register_readings.h"

#include <cstdint>
#include <span>
#include <unordered_map>

namespace zorvane {

/// The last known value of each register, by slave and register number, and what its readings came to.
class Register_Store {
  public:
    void clear() { registers_.clear(); }
    /// From now on readings are of another opening of the port.
    void portOpened() { ++opening_; }

    /// Values that the controller gave.
    void putRead(std::int32_t slave, std::int32_t first, std::span<const std::uint16_t> values);
    /// Values that the controller took: that makes none of them read.
    void putWritten(std::int32_t slave, std::int32_t first, std::span<const std::uint16_t> values);
    /// A reading of `count` registers ended without values. The older ones stay.
    void putFault(std::int32_t slave, std::int32_t first, std::int32_t count, const std::string& response);

    /// 0 for a register that was never put.
    [[nodiscard]] std::uint16_t at(std::int32_t slave, std::int32_t address) const;
    [[nodiscard]] Register_Reading reading(std::int32_t slave, std::int32_t address) const;

  private:
    struct Entry {
        std::uint16_t value = 0;
        std::int64_t readIn = 0; ///< the opening that it was read in; 0: never
        std::optional<std::string> fault;
    };

    [[nodiscard]] const Entry* find(std::int32_t slave, std::int32_t address) const;

    std::unordered_map<std::uint64_t, Entry> registers_;
    std::int64_t opening_ = 1;
};

} // namespace zorvane
