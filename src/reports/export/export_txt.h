// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/report_content.h"

#include <string>

namespace zorvane {

/// The report as plain text: UTF-8, lines ended by CR LF, the columns of each table under each other. A
/// control character becomes a blank, so that it breaks no line.
[[nodiscard]] std::string exportTxt(const Report_Content& content);

} // namespace zorvane
