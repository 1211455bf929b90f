// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"

#include <cstddef>
#include <functional>

class QPagedPaintDevice;
class QPainter;

namespace zorvane {

/// Paints a page, from 0, on the screen, on paper or into a picture. A unit of
/// the painter is a twip, and its origin the paper's left upper corner.
void paintPage(QPainter& painter, const Page_Document& document, std::size_t page);

/// The width of every line, in twips.
inline constexpr double ruleWidth = 10;

/// Which pages are painted, from 0, and until when.
struct Paint_Order {
    std::size_t first = 0;
    std::size_t last = static_cast<std::size_t>(-1); ///< beyond the last page: all from the first one on
    std::function<bool()> keepsOn;                   ///< asked before each page; false ends it there
};

/// Paints pages on a printer or a PDF. The device has the document's paper, and
/// its origin is the paper's corner. False when the device can't be painted on,
/// or `keepsOn` ended it.
[[nodiscard]] bool paintPages(QPagedPaintDevice& device, const Page_Document& document,
                              const Paint_Order& order = {});

} // namespace zorvane
