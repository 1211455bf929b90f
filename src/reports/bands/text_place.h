// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"

namespace zorvane {

/// How much room a text takes that stands for itself, in twips.
struct Text_Extent {
    double width = 0;    ///< all of it
    double inkLeft = 0;  ///< where its first letter begins, after blanks
    double inkRight = 0; ///< where its last letter ends
    double height = 0;   ///< of a line
    double ascent = 0;   ///< of that, above the base line
};

/// Where a text stands on the paper, and at which sides of its room something
/// of it is missing.
struct Text_Place {
    double left = 0;
    double baseLine = 0;
    bool clipped = false; ///< a part of it, if only a blank, lies beyond the sides
    bool cutLeft = false;
    bool cutRight = false;
};

[[nodiscard]] Text_Place placeOf(const Text_Item& item, const Text_Style& style, const Text_Extent& extent);

/// The mark of a cut text: a triangle that points outwards, on a piece of paper in place of the cut letter.
struct Cut_Mark {
    double side = 0;   ///< where it points to
    double width = 0;  ///< inwards from there: below 0 at the right side
    double height = 0; ///< of the triangle, in the middle of the room
    double rim = 0;    ///< of paper, further inwards
    double top = 0;    ///< of the room, all the height of which the paper has
    double bottom = 0;

    [[nodiscard]] double middle() const { return (top + bottom) / 2; }
};

enum class Room_Side { Left, Right };

/// The mark at that side of a text's room.
[[nodiscard]] Cut_Mark cutMark(const Text_Item& item, Room_Side at);

/// The colour that a text stands on.
[[nodiscard]] inline Packed_Colour paperOf(const Text_Style& style) {
    return style.BackStyle == Back_Opaque ? style.BackColor : 0xFFFFFF;
}

} // namespace zorvane
