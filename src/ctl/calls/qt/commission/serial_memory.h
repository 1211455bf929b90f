// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

#include <optional>
#include <string>

namespace zorvane::ctl {

/// The serial number that a document's controller had when something was sent to it last. `key` tells
/// document, port and unit. All texts in UTF-8.
[[nodiscard]] std::optional<std::string> knownSerial(const Call_Context& context, const std::string& key);
/// Keeps it; what can't be kept is told.
void rememberSerial(const Call_Context& context, const std::string& key, const std::string& serial);

} // namespace zorvane::ctl
