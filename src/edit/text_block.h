// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorvane::edit {

/// The texts of a rectangle of cells, row by row.
using Text_Rows = std::vector<std::vector<std::string>>;

/// Takes the text apart that a spreadsheet puts on the clipboard: tabs between cells, line ends between rows,
/// quotes around a cell with one of them in it. The line end after the last row counts for nothing.
[[nodiscard]] Text_Rows textRows(std::string_view clipboard);

/// The text that a spreadsheet takes from the clipboard.
[[nodiscard]] std::string tabbedText(const Text_Rows& rows);

/// The same rectangle as an HTML table, in ASCII. Spreadsheets leave its texts as they are: none becomes a
/// date or a formula.
[[nodiscard]] std::string htmlTable(const Text_Rows& rows);

} // namespace zorvane::edit
