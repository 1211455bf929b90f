// SPDX-License-Identifier: MIT
#include "reports/bands/text_place.h"

#include <algorithm>

namespace zorvane {

namespace {

double leftOf(const Text_Item& item, const Text_Style& style, double width) {
    if (style.Alignment == Align_Right) return item.left + item.width - width - textInset;
    if (style.Alignment == Align_Center) return item.left + (item.width - width) / 2;
    return item.left + textInset;
}

} // namespace

Text_Place placeOf(const Text_Item& item, const Text_Style& style, const Text_Extent& extent) {
    const double above = style.VerticalAlignment == Align_Middle ? (item.height - extent.height) / 2 : 0;
    const double right = item.left + item.width;
    Text_Place place;
    place.left = leftOf(item, style, extent.width);
    place.baseLine = item.top + above + extent.ascent;
    place.clipped = place.left < item.left || place.left + extent.width > right;
    if (item.width > 0 && extent.inkRight > extent.inkLeft) { // blanks beyond the sides are no loss
        place.cutLeft = place.left + extent.inkLeft < item.left;
        place.cutRight = place.left + extent.inkRight > right;
    }
    return place;
}

Cut_Mark cutMark(const Text_Item& item, Room_Side at) {
    constexpr double widest = 60;
    constexpr double height = 120;
    constexpr double rim = 10;
    const double width = std::min(widest, item.width / 3);
    const bool left = at == Room_Side::Left;
    return {left ? item.left : item.left + item.width,
            left ? width : -width,
            height,
            rim,
            item.top,
            item.top + item.height};
}

} // namespace zorvane
