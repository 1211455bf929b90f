// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zorvane {

/// The first and last of registers that follow each other, such as those of a block. Registers are numbered
/// as a template does it.
struct Register_Range {
    std::int32_t first = 0;
    std::int32_t last = 0;

    bool operator==(const Register_Range&) const = default;
};

} // namespace zorvane
