// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_settings.h"

namespace zorvane::ui {

[[nodiscard]] bool isLandscape(const Page_Settings& page);

/// The same page on a paper of that size, upright or across.
[[nodiscard]] Page_Settings onPaper(Page_Settings page, double width, double height, bool landscape);

/// Whether the margins leave room for a table: an inch across, and as much between page header and footer.
[[nodiscard]] bool marginsFit(const Page_Settings& page);

} // namespace zorvane::ui
