// SPDX-License-Identifier: MIT
#pragma once

#include "commission/taking_back.h"
#include "ctl/document/subcommand.h"

#include <string>
#include <vector>

namespace zorvane::ctl {

/// Prints how the registers of a run stand now, as one object or for people. Of a run without a name only the
/// empty object is left.
void printLeft(const Call_Context& context, const std::string& run,
               const std::vector<commission::Left_Row>& rows);

/// 7 where a register wasn't read, 3 where one has changed since, else 0.
[[nodiscard]] int exitOfLeft(const std::vector<commission::Left_Row>& rows);

} // namespace zorvane::ctl
