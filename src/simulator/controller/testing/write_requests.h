// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/fault_rule.h"

namespace zorvane::simulator {

/// Requests of unit 1 without check sums: 7 to register 100; 8 and 9 to registers 100 and 101.
inline const Bytes writeSeven{1, 6, 0, 100, 0, 7};
inline const Bytes writeBlock{1, 16, 0, 100, 0, 2, 4, 0, 8, 0, 9};

} // namespace zorvane::simulator
