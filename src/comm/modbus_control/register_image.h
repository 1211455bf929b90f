// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/link_roles.h"
#include "comm/modbus_control/scan/register_ranges.h"

#include <cstdint>

namespace zorvane {

/// The registers of one slave as the link last saw them; reading costs no wire traffic.
class Register_Image {
  public:
    Register_Image(const Link_Registers& link, std::int32_t unit) : link_(&link), unit_(unit) {}

    /// -32768 to 32767.
    [[nodiscard]] std::int32_t signedAt(std::int32_t address) const {
        return link_->RegisterValue(unit_, address);
    }
    /// 0 to 65535.
    [[nodiscard]] std::int32_t unsignedAt(std::int32_t address) const {
        return link_->RegisterValue(unit_, address, false);
    }
    [[nodiscard]] std::int32_t unit() const noexcept { return unit_; }

  private:
    const Link_Registers* link_;
    std::int32_t unit_;
};

/// How many registers lie from `first` to `last`: 0 when the range runs backwards. More than there are
/// addresses on the wire (65536) is failure 6.
[[nodiscard]] std::int32_t registerCount(std::int32_t first, std::int32_t last);

} // namespace zorvane
