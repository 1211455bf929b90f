// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/register_range.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace zorvane {

/// The fewest ranges that hold the registers, in rising order.
[[nodiscard]] std::vector<Register_Range> rangesOf(const std::set<std::int32_t>& registers);

/// "Registers 10-12" or "Register 20", to begin a sentence with.
[[nodiscard]] std::string namedRange(const Register_Range& range);

/// "10-12, 20": registers in short. After `most` ranges "and 120 more", which counts registers.
[[nodiscard]] std::string registersText(const std::set<std::int32_t>& registers,
                                        std::size_t most = std::numeric_limits<std::size_t>::max());

} // namespace zorvane
