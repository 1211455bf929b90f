// SPDX-License-Identifier: MIT
#include "reports/bands/printed_report.h"

#include <algorithm>

namespace zorvane {

std::size_t Style_Table::indexOf(const Text_Style& style) {
    const auto found = std::find(styles_.rbegin(), styles_.rend(), style);
    if (found != styles_.rend())
        return styles_.size() - 1 - static_cast<std::size_t>(found - styles_.rbegin());
    styles_.push_back(style);
    return styles_.size() - 1;
}

} // namespace zorvane
