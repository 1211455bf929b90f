// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

namespace zorvane::ctl {

/// The calls that need no serial port. Each has a file of its own.
[[nodiscard]] std::vector<Subcommand_Entry> documentCalls();

[[nodiscard]] std::unique_ptr<Subcommand> makeModelsSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeCheckSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeDumpSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeSaveSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeUpdateSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeApplySubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makePlanSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeShowSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeSetSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeExportSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeImportSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeRecoverSubcommand();

} // namespace zorvane::ctl
