// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"
#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"

#include <vector>

namespace zorvane::commission {

/// Which values of the controller aren't the factory's: those of the document that it had before the run, but
/// for those that the run verified. Values that nobody can edit are none of them.
[[nodiscard]] std::vector<Record_Deviation> deviationsFrom(const Declara_Zorvane& factory,
                                                           const Declara_Zorvane& before,
                                                           const Identity_Section& section,
                                                           const std::vector<Record_Row>& rows);

} // namespace zorvane::commission
