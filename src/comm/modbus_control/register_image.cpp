// SPDX-License-Identifier: MIT
#include "comm/modbus_control/register_image.h"

#include "values/run_time_failure.h"

namespace zorvane {

std::int32_t registerCount(std::int32_t first, std::int32_t last) {
    constexpr std::int64_t addressSpace = 65536;
    const std::int64_t count = static_cast<std::int64_t>(last) - first + 1;
    if (count > addressSpace) throw Run_Time_Failure(Failure::Overflow);
    return count < 0 ? 0 : static_cast<std::int32_t>(count);
}

} // namespace zorvane
