// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

#include <memory>
#include <vector>

namespace zorvane::ctl {

/// The calls that measure and paint texts: they need a QGuiApplication.
[[nodiscard]] std::vector<Subcommand_Entry> paintedCalls();

[[nodiscard]] std::unique_ptr<Subcommand> makeReportSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeRecordSubcommand();

} // namespace zorvane::ctl
