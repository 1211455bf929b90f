// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/register_file.h"
#include "ctl/document/subcommand.h"

#include <optional>
#include <string>

namespace zorvane::ctl {

/// Reads a register file (UTF-8 path). Nothing, and a notice, when it is missing or malformed.
[[nodiscard]] std::optional<Register_Values> readRegisterFile(const Call_Context& context,
                                                              const std::string& path);

/// Writes a register file. False, and a notice, when that fails.
[[nodiscard]] bool writeRegisterFile(const Call_Context& context, const std::string& path,
                                     const Register_Values& registers);

} // namespace zorvane::ctl
