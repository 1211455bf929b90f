// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"
#include "reports/export/archive_stamp.h"

#include <string>

namespace zorvane {

/// A PDF/A-1b file of these pages: fonts embedded, colours of an sRGB output intent, XMP metadata. The same
/// pages and stamp give the same bytes. What can't be made is failure 75.
[[nodiscard]] std::string archivePdf(const Page_Document& pages, const Archive_Stamp& stamp);

} // namespace zorvane
