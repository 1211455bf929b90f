// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zorvane::bench {

/// The largest table that a template can ask for in rows, and a width that no template of ours comes near.
inline constexpr std::int16_t largeRows = 32767;
inline constexpr std::int16_t largeColumns = 50;

/// What a cell holds: three to five digits.
[[nodiscard]] std::string largeValue(std::int32_t row, std::int32_t column);

/// A document of one such field. Every cell has a register, limits and a value; every other column can be
/// changed.
[[nodiscard]] std::unique_ptr<Declara_Zorvane> largeDocument();

} // namespace zorvane::bench
