// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace zorvane {

/// The present moment as reports show it.
struct Report_Time {
    std::string shortDate; ///< in the desktop's own short form
    int hour = 0;          ///< 0 to 23
    int minute = 0;
};
using Report_Clock = std::function<Report_Time()>;

/// A path as a footer shows it: one of more than 50 characters keeps its first 3 and its last 48, with "..."
/// between them. A character that Windows-1252 lacks is "?".
[[nodiscard]] std::string routeText(const std::string& path);

/// The date, two blanks and the time: "11/21/2026  9:05".
[[nodiscard]] std::string dateText(const Report_Time& time);

/// What stands before the number of all pages: "Page:  3 / ".
[[nodiscard]] std::string pageText(std::int32_t page);

} // namespace zorvane
