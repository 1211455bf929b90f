// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <string>

namespace zorvane::doubles {

/// What a cell holds, members in their order, only those that aren't empty: `Min_Value "0", Address "100"`.
/// A list shows as `Messages 0="Off" 1="On"`.
[[nodiscard]] std::string cellText(const Cell_Rec& cell);

/// A field: a line for its own members, one for its texts of the upper grid, one a cell that holds something.
[[nodiscard]] std::string fieldText(const Declara_Zorvane& document, std::int32_t field);

/// The whole document as lines, only what isn't empty; colours only where they differ from their defaults.
[[nodiscard]] std::string documentText(const Declara_Zorvane& document);

} // namespace zorvane::doubles
