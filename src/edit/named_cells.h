// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <string>
#include <string_view>
#include <vector>

namespace zorvane::edit {

/// The text that names a row, "Set point": that of the first column where it can't be edited, else "row 2".
[[nodiscard]] std::string rowName(const Declara_Zorvane& document, std::int32_t field, std::int32_t row);

/// A cell's name with all its parts: "Regulation/Set point/Value". The same name may stand for several cells
/// of a template that says the same twice.
[[nodiscard]] std::string cellPath(const Declara_Zorvane& document, const Cell_Place& place);

/// The cells that a name stands for: page, row and heading with "/" between them, in any letter case, blanks
/// around the parts apart. Without a heading it is the row's setting: its only cell that can be edited and
/// has a register; where the row has none, the only one that has a register or can be edited. "row 3" stands
/// for any row, "page 2" for any page and "column 2" for any heading.
[[nodiscard]] std::vector<Cell_Place> cellsNamed(const Declara_Zorvane& document, std::string_view name);

/// What is wrong with a name that stands for no cell or for several, and what else there is: "... fits 2
/// cells: Timers/row 2/Pulse (2 2 1), Timers/row 2/Pause (2 2 2)". Without a full stop.
[[nodiscard]] std::string nameProblem(const Declara_Zorvane& document, std::string_view name,
                                      const std::vector<Cell_Place>& places);

} // namespace zorvane::edit
