// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"

#include <string>
#include <vector>

namespace zorvane::doubles {

/// A page as lines of text, an item a line:
///   text 1440,1440 1276x283 "Zorvane" 8.5
///   box 1440,2815 1100x288 c0c0c0
///   line 1440,1723 10531,1723
/// After a text stand its size and what isn't plain of it: right, center, bold, and its colour if it isn't
/// black; after a line its colour and `dotted`. Colours are packed, with blue in front.
[[nodiscard]] std::vector<std::string> pageText(const Page_Document& document, std::size_t page);

/// The texts of a page alone.
[[nodiscard]] std::vector<std::string> textsOf(const Page_Document& document, std::size_t page);

} // namespace zorvane::doubles
