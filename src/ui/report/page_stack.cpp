// SPDX-License-Identifier: MIT
#include "ui/report/page_stack.h"

#include "values/twips.h"

#include <QSizeF>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zorvane::ui {

namespace {

constexpr std::array usualZooms = {10, 15, 25, 33, 50, 67, 75, 90, 100, 125, 150, 200, 300, 400};

double percentForRoom(int pixels, double twips, int dotsPerInch) {
    const double inches = std::max(1.0, twips) / twipsPerInch;
    return 100.0 * std::max(1, pixels - 2 * Page_Stack::gap) / (inches * dotsPerInch);
}

} // namespace

int Page_Stack::height() const {
    const std::int64_t whole = gap + std::int64_t{pages} * (page.height() + gap);
    return static_cast<int>(std::min<std::int64_t>(whole, std::numeric_limits<int>::max()));
}

int Page_Stack::pageAt(int y) const {
    return std::clamp((y - gap / 2) / (page.height() + gap), 0, std::max(0, pages - 1));
}

int percentOf(int zoom, const QSizeF& paper, const QSize& view, int dotsPerInch) {
    const double forWidth = percentForRoom(view.width(), paper.width(), dotsPerInch);
    const double forHeight = percentForRoom(view.height(), paper.height(), dotsPerInch);
    double percent = zoom;
    if (zoom == zoomWholePage) percent = std::min(forWidth, forHeight);
    if (zoom == zoomPageWidth) percent = forWidth;
    return std::clamp(static_cast<int>(std::floor(percent)), smallestZoom, largestZoom);
}

QSize pagePixels(int percent, const QSizeF& paper, int dotsPerInch) {
    const double scale = percent / 100.0 * dotsPerInch / twipsPerInch;
    return {std::max(1, static_cast<int>(std::lround(paper.width() * scale))),
            std::max(1, static_cast<int>(std::lround(paper.height() * scale)))};
}

int nextZoom(int percent) {
    const auto* found = std::upper_bound(usualZooms.begin(), usualZooms.end(), percent);
    return found == usualZooms.end() ? largestZoom : *found;
}

int previousZoom(int percent) {
    const auto* found = std::lower_bound(usualZooms.begin(), usualZooms.end(), percent);
    return found == usualZooms.begin() ? smallestZoom : *(found - 1);
}

} // namespace zorvane::ui
