// SPDX-License-Identifier: MIT
#pragma once

#include "compare/register_file.h"
#include "ctl/document/subcommand.h"

#include <optional>
#include <string>

namespace zorvane::ctl {

/// The registers of a file, or why it has none.
struct Register_File {
    compare::Register_Values values;
    std::string fault; ///< whole sentences (UTF-8); empty when it was read
};
[[nodiscard]] Register_File registerFile(const Call_Context& context, const std::string& path);

/// Reads a register file (UTF-8 path). Nothing, and a notice, when it is missing or malformed.
[[nodiscard]] std::optional<compare::Register_Values> readRegisterFile(const Call_Context& context,
                                                                       const std::string& path);

/// Writes a register file. False, and a notice, when that fails.
[[nodiscard]] bool writeRegisterFile(const Call_Context& context, const std::string& path,
                                     const compare::Register_Values& registers);

} // namespace zorvane::ctl
