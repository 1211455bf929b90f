// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/registers/register_map.h"
#include "template/identity_section.h"

namespace zorvane::simulator {

/// Makes the controller one of the template's: the marks that its section tells have their values, where the
/// document gave their registers no other. They and those of the serial number and the firmware are there,
/// and keep still. Registers that can't be read back refuse reading, and the objects are the section's where
/// they may be asked.
void addIdentity(const Identity_Section& section, Register_Map& map);

} // namespace zorvane::simulator
