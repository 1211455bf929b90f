// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

namespace zorvane::ctl {

[[nodiscard]] std::unique_ptr<Subcommand> makePortPlanSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeSendSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeResumeSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeRestoreSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeVerifySubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeRunsSubcommand();

/// The calls that send changes; "plan" takes the place of the one that knows no port.
[[nodiscard]] std::vector<Subcommand_Entry> commissionCalls();

} // namespace zorvane::ctl
