// SPDX-License-Identifier: MIT
#pragma once

#include "survey/desk/found_identity.h"
#include "survey/find/line_search.h"

#include <array>
#include <string>
#include <vector>

namespace zorvane::survey {

/// What a search is asked for.
struct Find_Wishes {
    Port_Settings port{};
    std::vector<Line_Settings> lines{}; ///< none: the likely ones
    std::vector<std::uint8_t> units{};
    Micros listen = 1500 * microsPerMs;
    std::optional<Line_Settings> lastGood{}; ///< with which a controller answered last
};

/// Which settings, units and registers are tried in which order.
[[nodiscard]] Search_Plan searchPlan(const Find_Wishes& wishes, const std::vector<Known_Template>& templates);

/// The columns of the table of what was found.
inline constexpr std::array foundHeadings = {"Unit",          "Settings",    "Model",
                                             "Answers after", "99 % within", "Damaged"};
/// A row of it: a text for each heading (Windows-1252). `linesCount` is the report's.
[[nodiscard]] std::vector<std::string> foundRow(const Found_Unit& found, const Found_Identity& identity,
                                                bool linesCount);

/// What people should know of the search beside what was found: UTF-8, a line each.
[[nodiscard]] std::vector<std::string> findNotes(const Search_Report& report, const std::string& port);

/// "9600,n,8,2, unit 17 (16 of 480 tried, 0 found)"
[[nodiscard]] std::string progressText(const Search_Progress& progress);

} // namespace zorvane::survey
