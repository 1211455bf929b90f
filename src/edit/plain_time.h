// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zorvane::edit {

/// What a time that somebody's spreadsheet wrote says. A spreadsheet takes `m:ss` for hours and minutes, and
/// may write them with seconds or for twelve hours: 0:45 comes back as `00:45:00` or `12:45:00 AM`.
struct Plain_Time {
    std::string text;  ///< `m:ss`
    std::string other; ///< the second reading, in hours, minutes and seconds; "" where there is one
};

/// Reads a time of three parts. Nothing for any other text, and where the seconds aren't 0, since no
/// spreadsheet makes that of `m:ss`.
[[nodiscard]] std::optional<Plain_Time> spreadsheetTime(std::string_view text);

} // namespace zorvane::edit
