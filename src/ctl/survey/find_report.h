// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/survey/found_identity.h"
#include "ctl/text/json_text.h"
#include "survey/find/line_search.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// What `find` asks, from its arguments.
struct Find_Wishes {
    Port_Settings port;
    std::vector<Line_Settings> lines; ///< none: the likely ones
    std::vector<std::uint8_t> units;
    Micros listen = 0;
};

/// Which settings, units and registers are tried in which order.
[[nodiscard]] survey::Search_Plan searchPlan(const Find_Wishes& wishes,
                                             const std::vector<Known_Template>& templates);

/// The exit code: 0 found, 3 none found, 1 for a port that failed, another master, and a search that was
/// stopped.
[[nodiscard]] int findExit(const survey::Search_Report& report);

/// `identities` has one for each that was found.
[[nodiscard]] Json findJson(const survey::Search_Report& report,
                            const std::vector<Found_Identity>& identities);
/// A table of what was found.
void printFound(std::ostream& out, const survey::Search_Report& report,
                const std::vector<Found_Identity>& identities);
/// What people should know of the search beside what was found: UTF-8, a line each.
[[nodiscard]] std::vector<std::string> findNotes(const survey::Search_Report& report,
                                                 const std::string& port);

/// "9600,n,8,2, unit 17 (16 of 480 tried, 0 found)"
[[nodiscard]] std::string progressText(const survey::Search_Progress& progress);

} // namespace zorvane::ctl
