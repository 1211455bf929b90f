// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// Commits the entry chosen in a list cell: its number counted from 0, as text. The entry's own code plays no
/// part. Offline the number becomes the `Value`; online it goes to the controller, where half a register can
/// be written too, and the next refresh takes it into the model. The document counts as changed whatever
/// comes of it. Offline, a number without an entry is failure 9, after the `Value` has taken it.
void PRO_Escribe_Lista(const Grid_Context& grids, std::int32_t Row, std::int32_t Col,
                       const std::string& Choice);

/// The write for entry `code` in a half register that now holds `registerValue`. The entry isn't masked, so
/// one above 255 in a low half spills into the high one.
[[nodiscard]] std::int32_t halfWithEntry(std::int32_t registerValue, bool high, std::int32_t code);

} // namespace zorvane
