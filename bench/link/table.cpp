// SPDX-License-Identifier: MIT
#include "bench/link/table.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace zorvane::bench {

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    const std::size_t middle = times.size() / 2;
    return times.size() % 2 == 1 ? times[middle] : (times[middle - 1] + times[middle]) / 2;
}

std::string fixed(double number, int digits) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << number;
    return text.str();
}

void printTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths(rows.front().size(), 0);
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            out << (i == 0 ? "" : "  ") << (i < 2 ? std::left : std::right)
                << std::setw(static_cast<int>(widths[i])) << row[i];
        out << '\n';
    }
    out << std::flush;
}

} // namespace zorvane::bench
