// SPDX-License-Identifier: MIT
#include "reports/bands/text_place.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

/// A column of 400 twips at 1000, with room for 310 beside the insets.
const Text_Item column{1000, 500, 400, 288, 0, ""};

Text_Place placed(int alignment, const Text_Extent& extent) {
    Text_Style style;
    style.Alignment = alignment;
    style.VerticalAlignment = Align_Middle;
    return placeOf(column, style, extent);
}

Text_Extent written(double width) { return {width, 0, width, 200, 160}; }

TEST(TextPlace, AText) {
    const Text_Place place = placed(Align_Left, written(300));
    EXPECT_EQ(place.left, 1045);
    EXPECT_EQ(place.baseLine, 500 + 44 + 160);
    EXPECT_EQ(placed(Align_Right, written(300)).left, 1055);
    EXPECT_EQ(placed(Align_Center, written(300)).left, 1050);
}

TEST(TextPlace, ATextLosesWhatLiesBeyondItsSides) {
    const auto cuts = [](int alignment, const Text_Extent& extent) {
        const Text_Place place = placed(alignment, extent);
        return std::string(place.clipped ? "clipped" : "whole") + (place.cutLeft ? " left" : "") +
               (place.cutRight ? " right" : "");
    };
    EXPECT_EQ(cuts(Align_Left, written(355)), "whole"); // up to the very side
    EXPECT_EQ(cuts(Align_Left, written(356)), "clipped right");
    EXPECT_EQ(cuts(Align_Right, written(356)), "clipped left");
    EXPECT_EQ(cuts(Align_Center, written(401)), "clipped left right");
    const Text_Extent blanksBehind{500, 0, 300, 200, 160};
    EXPECT_EQ(cuts(Align_Left, blanksBehind), "clipped");
    const Text_Extent blanksBefore{500, 200, 500, 200, 160};
    EXPECT_EQ(cuts(Align_Right, blanksBefore), "clipped");
    EXPECT_EQ(cuts(Align_Left, blanksBefore), "clipped right");
    const Text_Extent onlyBlanks{500, 0, 0, 200, 160};
    EXPECT_EQ(cuts(Align_Right, onlyBlanks), "clipped");
}

TEST(TextPlace, WhereThereIsNoRoomThereIsNoMark) {
    const Text_Place place = placeOf({1000, 500, -1, 288, 0, ""}, {}, written(300));
    EXPECT_TRUE(place.clipped);
    EXPECT_FALSE(place.cutLeft || place.cutRight);
}

TEST(TextPlace, TheMarkPointsToTheSideThatCuts) {
    const Cut_Mark left = cutMark(column, Room_Side::Left);
    EXPECT_EQ(left.side, 1000);
    EXPECT_EQ(left.width, 60);
    EXPECT_EQ(left.middle(), 644);
    const Cut_Mark right = cutMark(column, Room_Side::Right);
    EXPECT_EQ(right.side, 1400);
    EXPECT_EQ(right.width, -60);
    EXPECT_EQ(cutMark({0, 0, 90, 288, 0, ""}, Room_Side::Left).width, 30); // of a narrow column a third
}

} // namespace
} // namespace zorvane
