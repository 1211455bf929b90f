// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "compare/controller_registers.h"
#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace zorvane::commission {

/// What reading a controller came to.
struct Whole_Reading {
    compare::Controller_Registers registers;
    std::size_t requests = 0;
    bool answered = false; ///< somebody answered something
    bool cancelled = false;
    bool lost = false; ///< the port is gone
    std::string why;   ///< why nobody answered
};

/// The blocks that the template reads.
[[nodiscard]] std::vector<Register_Range> readBlocks(const Declara_Zorvane& document);

/// Reads all blocks, the registers of the identity and `more`, each block with as few requests as it takes.
/// Registers that can't be read back aren't asked for. Where the first block brings no answer at all, nobody
/// is there and no other one is asked for.
[[nodiscard]] Whole_Reading readWhole(Unit_Reader& line, std::int32_t unit, const Declara_Zorvane& document,
                                      const Identity_Section& section,
                                      const std::set<std::int32_t>& more = {});

} // namespace zorvane::commission
