#pragma once

#include "reports/page_document.h"
#include "reports/page_settings.h"
#include "reports/printed_report.h"

#include <cstdint>
#include <functional>

namespace zorvane {

/// A band of every page. It puts the styles of its texts into the table that it is given.
struct Page_Band {
    double height = 0;
    std::function<Printed_Band(std::int32_t page, Style_Table& styles)> print; ///< pages from 1
};

/// Puts a report on pages. Each has the header at the top margin and the footer upon the bottom margin, and
/// between them as many bands as have room, at least one. A head stays with the row after it; a row that
/// begins a page has its headings above it; a foot that has no room is left out. What stands to the right of
/// the margin stays there. A report without bands has no pages. Takes time in proportion to the bands.
[[nodiscard]] Page_Document layoutPages(Printed_Report report, const Page_Settings& paper,
                                        const Page_Band& header, const Page_Band& footer);

} // namespace zorvane
