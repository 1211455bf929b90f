// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/text/json_text.h"
#include "survey/desk/listening_words.h"

#include <iosfwd>
#include <vector>

namespace zorvane::ctl {

/// What was heard. Every frame is a request or an answer, and the units add up to the whole.
[[nodiscard]] Json listenJson(const survey::Listening_Report& report, const Line_Settings& line,
                              const std::vector<survey::Known_Template>& templates);
/// The same for people: a line of sums, and a table of who is asked what.
void printHeard(std::ostream& out, const survey::Listening_Report& report, const Line_Settings& line,
                const std::vector<survey::Known_Template>& templates);

} // namespace zorvane::ctl
