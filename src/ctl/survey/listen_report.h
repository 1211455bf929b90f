// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/survey/known_template.h"
#include "ctl/text/json_text.h"
#include "survey/listen/line_listener.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// The line that the arguments name: the settings given, else those of the first template that says some,
/// else 9600,n,8,1.
[[nodiscard]] Line_Settings lineToListenTo(const std::string& given,
                                           const std::vector<Known_Template>& templates);

/// "40101-40110", the registers of a request as the first template numbers them that has cells there; without
/// one as they are on the wire. Empty for a request that isn't about holding registers.
[[nodiscard]] std::string registersAsked(const survey::Asked& asked, std::vector<Known_Template>& templates);
/// The names of the cells there, the first few of them (Windows-1252).
[[nodiscard]] std::vector<std::string> namesAsked(const survey::Asked& asked,
                                                  std::vector<Known_Template>& templates);

/// What was heard. Every frame is a request or an answer, and the units add up to the whole.
[[nodiscard]] Json listenJson(const survey::Listening_Report& report, const Line_Settings& line,
                              std::vector<Known_Template>& templates);
/// The same for people: a line of sums, and a table of who is asked what.
void printHeard(std::ostream& out, const survey::Listening_Report& report, const Line_Settings& line,
                std::vector<Known_Template>& templates);
/// What people should know beside that: UTF-8, a line each.
[[nodiscard]] std::vector<std::string> listenNotes(const survey::Listening_Report& report,
                                                   const std::string& port, const Line_Settings& line);

} // namespace zorvane::ctl
