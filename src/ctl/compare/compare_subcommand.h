// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"
#include "ctl/line/controller_line.h"

#include <memory>

namespace zorvane::ctl {

/// Compares a document with another file, the factory values, a register file or a controller. Sends reads
/// only.
[[nodiscard]] std::unique_ptr<Subcommand> makeCompareSubcommand(Make_Controller_Line makeLine);

} // namespace zorvane::ctl
