// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zorvane {

/// "R7702-16", "R7702-32" and "R7702-64" take whole blocks of registers where others take single ones.
[[nodiscard]] constexpr bool isBoardFamily(std::string_view model) noexcept {
    return model == "R7702-16" || model == "R7702-32" || model == "R7702-64";
}

} // namespace zorvane
