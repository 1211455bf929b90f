// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

#include <optional>
#include <string>

namespace zorvane::ctl {

/// The bytes of a file (UTF-8 path). Nothing, and a notice, when they can't be read.
[[nodiscard]] std::optional<std::string> readFile(const Call_Context& context, const std::string& path);

/// Writes a text as a file (UTF-8 path), with its lines ended by CR LF. False, and a notice, when that fails.
[[nodiscard]] bool writeTextFile(const Call_Context& context, const std::string& path,
                                 const std::string& text);

} // namespace zorvane::ctl
