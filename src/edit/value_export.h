// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <string>

namespace zorvane::edit {

/// How a file of values is written.
struct Csv_Style {
    char separator = ',';
    char decimalSign = '.'; ///< "." or ",", and not the separator
};

/// The values of all cells that can be edited, a line each below the headings field, row, column, page, name,
/// heading, register, value: UTF-8 with a byte order mark, lines ended by CR LF. Lists have the texts of
/// their entries. Texts that a spreadsheet would run or rewrite are guarded by an apostrophe.
[[nodiscard]] std::string exportedValues(const Declara_Zorvane& document, const Csv_Style& style);

} // namespace zorvane::edit
