// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

namespace zorvane::ui {

/// Zooms other than percents.
inline constexpr int zoomWholePage = -2;
inline constexpr int zoomPageWidth = -1;
inline constexpr int smallestZoom = 10; ///< percent
inline constexpr int largestZoom = 400;

/// Pages of one size below each other, in the pixels of a view. Pages count from 0.
struct Page_Stack {
    static constexpr int gap = 10; ///< around each page

    QSize page;
    int pages = 0;

    [[nodiscard]] int height() const;
    [[nodiscard]] int width() const { return page.width() + 2 * gap; }
    [[nodiscard]] int topOf(int index) const { return gap + index * (page.height() + gap); }
    /// The page at a height, or the nearest one. REQUIRES: there are pages.
    [[nodiscard]] int pageAt(int y) const;
};

/// The percent that a zoom comes to: a page of that size in twips, a view of that size in pixels, and the
/// dots of its screen to the inch.
[[nodiscard]] int percentOf(int zoom, const QSizeF& paper, const QSize& view, int dotsPerInch);

/// A page's size in pixels.
[[nodiscard]] QSize pagePixels(int percent, const QSizeF& paper, int dotsPerInch);

/// The next larger and the next smaller of the usual percents.
[[nodiscard]] int nextZoom(int percent);
[[nodiscard]] int previousZoom(int percent);

} // namespace zorvane::ui
