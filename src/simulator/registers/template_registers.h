// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/registers/register_map.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <functional>
#include <string>

namespace zorvane::simulator {

/// The registers of a document: those of its cells with the cells' values, and 0 for the others of the
/// declared scan and download blocks. Cells of the blocks that are scanned with the word "ALWAYS" are live,
/// but for those that the user may edit: settings keep still. Registers without an address on the wire are
/// left out and reported to `warn`.
[[nodiscard]] Register_Map registerMapOf(const Declara_Zorvane& document, std::int32_t addressBase,
                                         const std::function<void(const std::string&)>& warn);

} // namespace zorvane::simulator
