// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/report_content.h"

#include <string>

namespace zorvane {

/// The report as the workbook stream of an Excel file, BIFF8; `oleFile` puts it into the file. A cell of a
/// table whose text is a number is a number; every other text is a text, whatever it begins with, cut at
/// 32767 characters. A sheet has room for 65536 rows and 256 columns; what is beyond goes to further sheets.
[[nodiscard]] std::string biffWorkbook(const Report_Content& content);

} // namespace zorvane
