// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"
#include "ctl/line/controller_line.h"

#include <memory>

namespace zorvane::ctl {

/// Tells whether the controller at the other end is the template's. Sends reads only.
[[nodiscard]] std::unique_ptr<Subcommand> makeIdentifySubcommand(Make_Controller_Line makeLine);

} // namespace zorvane::ctl
