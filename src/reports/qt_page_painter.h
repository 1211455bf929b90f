#pragma once

#include "reports/page_document.h"

#include <cstddef>

class QPagedPaintDevice;
class QPainter;

namespace zorvane {

/// Paints a page, from 0, on the screen, on paper or into a picture. A unit of the painter is a twip, and its
/// origin the paper's left upper corner.
void paintPage(QPainter& painter, const Page_Document& document, std::size_t page);

/// Paints all pages on a printer or a PDF. The device has the document's paper, and its origin is the paper's
/// corner. False when the device can't be painted on.
[[nodiscard]] bool paintPages(QPagedPaintDevice& device, const Page_Document& document);

} // namespace zorvane
