// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/text/json_text.h"
#include "survey/desk/search_words.h"

#include <iosfwd>
#include <vector>

namespace zorvane::ctl {

/// The exit code: 0 found, 3 none found, 1 for a port that failed, another master, and a search that was
/// stopped.
[[nodiscard]] int findExit(const survey::Search_Report& report);

/// `identities` has one for each that was found.
[[nodiscard]] Json findJson(const survey::Search_Report& report,
                            const std::vector<survey::Found_Identity>& identities);
/// A table of what was found.
void printFound(std::ostream& out, const survey::Search_Report& report,
                const std::vector<survey::Found_Identity>& identities);

} // namespace zorvane::ctl
