// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "compare/controller_registers.h"

#include <cstdint>
#include <functional>
#include <set>
#include <vector>

namespace zorvane::commission {

using Read_Range = std::function<Unit_Answer(std::int32_t first, std::int32_t count)>;

/// Reads these registers with few requests: those of one block in one go, from the first that is asked for to
/// the last. Where a block refuses that, each row of registers by itself. Those of `never` aren't asked for.
[[nodiscard]] compare::Controller_Registers readRegisters(const std::set<std::int32_t>& registers,
                                                          const std::vector<Register_Range>& blocks,
                                                          const std::vector<Register_Range>& never,
                                                          const Read_Range& read);

} // namespace zorvane::commission
