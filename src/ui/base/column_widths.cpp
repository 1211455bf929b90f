// SPDX-License-Identifier: MIT
#include "ui/base/column_widths.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace zorvane::ui {

std::vector<int> fittedWidths(const std::vector<int>& wanted, const std::vector<int>& least, int room) {
    std::vector<int> widths(wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        widths[i] = std::max(wanted[i], least[i]);
    const int total = std::accumulate(widths.begin(), widths.end(), 0);
    if (total <= room) return widths;
    int spare = total - std::accumulate(least.begin(), least.end(), 0);
    int over = std::min(total - room, spare);
    for (std::size_t i = 0; i < widths.size() && spare > 0; ++i) {
        const int own = widths[i] - least[i];
        const int given = over * own / spare; // of what is left, so that it comes out even at the end
        widths[i] -= given;
        over -= given;
        spare -= own;
    }
    return widths;
}

} // namespace zorvane::ui
