// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

#include <string>
#include <vector>

namespace zorvane::ctl {

/// Understands a command line (without the program's name, UTF-8) and runs the call that it names. `--json`
/// and `--app-dir` belong to every call. Gives the exit code.
[[nodiscard]] int runProgram(const std::vector<Subcommand_Entry>& calls,
                             const std::vector<std::string>& arguments, Call_Context context);

/// A folder as messages name it: without the separator at its end.
[[nodiscard]] std::string withoutEndSeparator(std::string folder);

} // namespace zorvane::ctl
