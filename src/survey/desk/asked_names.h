// SPDX-License-Identifier: MIT
#pragma once

#include "survey/desk/known_template.h"
#include "survey/listen/heard_exchanges.h"

#include <string>
#include <vector>

namespace zorvane::survey {

/// "40101-40110", the registers of a request as the first template numbers them that has cells there; without
/// one as they are on the wire. Empty for a request that isn't about holding registers.
[[nodiscard]] std::string registersAsked(const Asked& asked, const std::vector<Known_Template>& templates);
/// The names of the cells there, the first few of them (Windows-1252).
[[nodiscard]] std::vector<std::string> namesAsked(const Asked& asked,
                                                  const std::vector<Known_Template>& templates);

} // namespace zorvane::survey
