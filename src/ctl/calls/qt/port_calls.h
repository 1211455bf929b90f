// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"
#include "ctl/line/controller_line.h"

namespace zorvane::ctl {

/// The calls that talk to a controller. They need a QCoreApplication.
[[nodiscard]] std::vector<Subcommand_Entry> portCalls();

[[nodiscard]] std::unique_ptr<Subcommand> makeUploadSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeDownloadSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeWatchSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeVerifyRecordSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeFindSubcommand();
[[nodiscard]] std::unique_ptr<Subcommand> makeListenSubcommand();

/// A line on a serial port of this computer. While it lives, SIGINT, SIGTERM and SIGHUP end what is read.
/// REQUIRES: a QCoreApplication; no other line or transfer beside it.
[[nodiscard]] std::unique_ptr<Controller_Line> makeQtControllerLine(const Port_Settings& settings);

} // namespace zorvane::ctl
