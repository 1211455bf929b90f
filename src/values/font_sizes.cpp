// SPDX-License-Identifier: MIT
#include "values/font_sizes.h"

#include "values/numbers.h"

namespace zorvane {

double Font_Size_Map(double listed) noexcept {
    for (const Font_Size_Entry& entry : fontSizes)
        if (entry.listed == listed) return entry.applied;
    return listed;
}

std::string listedFontSize(std::size_t index) { return " " + numberText(fontSizes.at(index).listed); }

} // namespace zorvane
