// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"
#include "reports/bands/page_settings.h"
#include "reports/bands/printed_report.h"

#include <cstdint>
#include <functional>

namespace zorvane {

/// A band of every page. It puts the styles of its texts into the table that it is given.
struct Page_Band {
    double height = 0;
    std::function<Printed_Band(std::int32_t page, Style_Table& styles)> print; ///< pages from 1
};

/// Asked during long work: false ends it early, with what is done. An empty one lets it go on.
using Keeps_On = std::function<bool()>;

/// Puts a report on pages. Each has the header at the top margin and the footer upon the bottom margin, and
/// between them as many bands as have room, at least one. A head stays with the row after it; a row that
/// begins a page has its headings above it; a foot that has no room is left out. What stands to the right of
/// the margin stays there. A report without bands has no pages. Takes time in proportion to the bands.
[[nodiscard]] Page_Document layoutPages(Printed_Report report, const Page_Settings& paper,
                                        const Page_Band& header, const Page_Band& footer,
                                        const Keeps_On& keepsOn = {});

} // namespace zorvane
