#pragma once

#include "reports/report_content.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::fuzz {

/// The parts of a text between separators, always one more than separators.
[[nodiscard]] std::vector<std::string> split(std::string_view text, char separator);

/// Between the rows, and between the texts of a row, of a report that the fuzzer made up. Every other byte may
/// stand in a text.
inline constexpr char rowEnd = '\x1E';
inline constexpr char textEnd = '\x1F';

/// A report as any bytes: a row of settings and the rows of the report.
///
///   settings: title, route, date, looks, measures: five texts
///   row:      L, H, R, T or G for its kind, and its texts behind it
///
/// Each byte of `looks` is the look of a text, taken in turn. `measures` are paper width, paper height and the
/// margins left, top, right and bottom with commas between; what is missing stands at its default.
[[nodiscard]] Report_Content reportFrom(std::string_view input);

} // namespace zorvane::fuzz
