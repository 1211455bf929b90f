// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorvane::bench {

/// The middle of the times; the mean of the two middle ones for an even count. REQUIRES: at least one.
[[nodiscard]] double median(std::vector<double> times);

/// A number with that many digits after the point.
[[nodiscard]] std::string fixed(double number, int digits);

/// Prints rows of equal length, the first as headings: columns as wide as needed, the first two to the left,
/// the others to the right.
void printTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

} // namespace zorvane::bench
