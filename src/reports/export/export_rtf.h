// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/report_content.h"

#include <string>

namespace zorvane {

/// The report as Rich Text Format, code page 1252: header and footer on every page, each table with a heading
/// row that comes again on further pages. Texts wrap in their cells, so all of them is there.
[[nodiscard]] std::string exportRtf(const Report_Content& content);

} // namespace zorvane
