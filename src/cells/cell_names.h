// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// How people find a page: its text in the upper grid, or "page 3" where it has none.
[[nodiscard]] std::string pageName(const Declara_Zorvane& document, std::int32_t field);

/// How people find a row of a table: the name in its first column, or "row 2" where that holds a setting
/// itself or nothing. Row and column of the model count from 1.
[[nodiscard]] std::string rowName(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                                  std::int32_t column);

/// "Regulation, Set point": the page and the row.
[[nodiscard]] std::string cellName(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                                   std::int32_t column);

} // namespace zorvane
