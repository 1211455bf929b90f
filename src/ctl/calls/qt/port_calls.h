// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

namespace zorvane::ctl {

/// The calls that talk to a controller. They need a QCoreApplication.
[[nodiscard]] std::vector<Subcommand_Entry> portCalls();

[[nodiscard]] std::unique_ptr<Subcommand> makeUploadSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeDownloadSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeWatchSubcommand();

} // namespace zorvane::ctl
