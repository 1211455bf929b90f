// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zorvane {

/// What a template tells the link while it is read, and no more. The link itself implements it.
class Link_Notice {
  public:
    virtual ~Link_Notice() = default;
    /// The template's pause between requests and reply time-out, both in ms, always handed over together.
    virtual void SetTimings(std::int32_t requestMs, std::int32_t outMs) = 0;
    /// The size of the register image; `first` and `last` are always 1 and the flag True.
    virtual void SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) = 0;
    /// What is taken off a register's number to give its address on the wire: 0, or 1, or 40001.
    virtual void SetAddressBase(std::int32_t base) = 0;
};

} // namespace zorvane
