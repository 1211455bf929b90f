// SPDX-License-Identifier: MIT
#pragma once

#include "survey/desk/asked_names.h"
#include "survey/listen/line_listener.h"

#include <array>
#include <string>
#include <vector>

namespace zorvane::survey {

/// The line to listen to: the settings given, else those of the first template that says some, else
/// 9600,n,8,1.
[[nodiscard]] Line_Settings lineToListenTo(const std::string& given,
                                           const std::vector<Known_Template>& templates);

/// Of the time, in percent, to a tenth.
[[nodiscard]] double loadOf(const Listening_Report& report, const Line_Settings& line);
/// "5 frames: 2 requests and 3 answers, 1 of them without the other. Load 4.1 %."
[[nodiscard]] std::string heardText(const Listening_Report& report, const Line_Settings& line);

/// The columns of the table of who is asked what.
inline constexpr std::array askedHeadings = {"Unit",     "Function", "Registers", "Times",       "Every",
                                             "Answered", "Refused",  "After",     "99 % within", "What"};
/// A row of it: a text for each heading (Windows-1252).
[[nodiscard]] std::vector<std::string> askedRow(const Asked& asked, const Asking& asking,
                                                const std::vector<Known_Template>& templates);

/// What people should know beside that: UTF-8, a line each. `otherSettings` says how to listen with other
/// settings.
[[nodiscard]] std::vector<std::string> listenNotes(const Listening_Report& report, const std::string& port,
                                                   const Line_Settings& line,
                                                   const std::string& otherSettings);

} // namespace zorvane::survey
