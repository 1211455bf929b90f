// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/scan/scan.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace zorvane {

/// Registers that hold one value together, such as a text: no reading may end between them.
class Kept_Together {
  public:
    void clear() { ranges_.clear(); }
    /// Nothing for fewer than two registers.
    void add(std::int32_t first, std::int32_t last);
    /// Whether one reading may end before the register and another begin with it.
    [[nodiscard]] bool mayBeginAt(std::int32_t number) const;

  private:
    std::vector<std::pair<std::int32_t, std::int32_t>> ranges_; ///< by their first, none within another
};

/// The largest part at the beginning of the frame that cuts nothing and whose count is free; none where there
/// is none. Neither it nor what it leaves of the frame has one register only.
[[nodiscard]] std::optional<std::uint16_t> freePart(const Scan_Frame& frame, const Kept_Together& together,
                                                    const std::function<bool(std::uint16_t count)>& isFree);

/// Parts of the present block that were read well. They count only when all of them are.
struct Read_Part {
    std::int32_t slave = 0;
    std::int32_t first = 0;
    std::vector<std::uint16_t> registers;
};

} // namespace zorvane
