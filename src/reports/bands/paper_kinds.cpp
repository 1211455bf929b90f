// SPDX-License-Identifier: MIT
#include "reports/bands/paper_kinds.h"

#include <algorithm>
#include <cmath>

namespace zorvane {

namespace {

constexpr double tolerance = 20; ///< twips; papers are rounded to points here and there

bool near(double one, double other) { return std::abs(one - other) <= tolerance; }

} // namespace

std::optional<std::size_t> paperKindOf(const Page_Settings& page) {
    const double width = std::min(page.PaperWidth, page.PaperHeight);
    const double height = std::max(page.PaperWidth, page.PaperHeight);
    for (std::size_t index = 0; index < paperKinds.size(); ++index)
        if (near(paperKinds.at(index).width, width) && near(paperKinds.at(index).height, height))
            return index;
    return std::nullopt;
}

} // namespace zorvane
