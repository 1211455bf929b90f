// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/registers/register_map.h"
#include "template/model/cell_rec.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace zorvane::simulator {

/// The first and the last register of a cell, equal for all but texts; nothing for a cell without a register.
struct Register_Span {
    std::int32_t first = 0;
    std::int32_t last = 0;

    bool operator==(const Register_Span&) const = default;
};
[[nodiscard]] std::optional<Register_Span> registersOf(const Cell_Rec& cell);

/// What one register of a cell holds. `place` counts the cell's registers from 0; `old` is what the register
/// held so far, of which a half, or one part of a time that two cells share, keeps the rest. `negativeFormat`
/// is the column's. A value that is no number counts as 0, one too large as well.
[[nodiscard]] std::uint16_t encodedRegister(const Cell_Rec& cell, std::string_view negativeFormat,
                                            std::int32_t place, std::uint16_t old);

/// How the cell's register may move by itself; nothing for texts and halves, which stand still.
[[nodiscard]] std::optional<Live_Range> liveRangeOf(const Cell_Rec& cell, std::string_view negativeFormat);

} // namespace zorvane::simulator
