// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/report_content.h"

#include <string>

namespace zorvane {

/// The report as one HTML file that needs no other: UTF-8, every text escaped.
[[nodiscard]] std::string exportHtml(const Report_Content& content);

} // namespace zorvane
