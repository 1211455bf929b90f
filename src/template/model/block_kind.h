// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zorvane {

/// Which cells a download looks a block up for: the values of `Download_Block_Rec::Block_Kind`.
enum class Block_Kind : std::int16_t { Numeric = 0, Message_List = 1, Ascii = 2 };

} // namespace zorvane
