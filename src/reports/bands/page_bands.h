// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/report_band.h"

#include <string>

namespace zorvane {

/// The page bands that all reports share; only texts and sizes differ.
struct Page_Header_Design {
    double height;
    std::string title;
    double titleWidth;
    double titleSize; ///< points
    double pageSize;  ///< points, of the page text
};

/// `Label14` with `Field1` beside it for the page of all pages, `Label15` with the title, and the rule
/// `Separadora2`.
void designHeader(Report_Band& band, const Page_Header_Design& design);

/// `lblRoute`, `lbldate` and the rule `Separadora` above them, texts of that size in points.
void designFooter(Report_Band& band, double size);

/// Where a rule ends that reaches to the end of the date.
[[nodiscard]] double ruleEnd(Report_Band& footer);

} // namespace zorvane
