// SPDX-License-Identifier: MIT
#include "reports/bands/paper_kinds.h"
#include "ui/report/page_sheet.h"
#include "ui/report/page_stack.h"

#include <QSizeF>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

const QSizeF letter(12240, 15840);

TEST(Page_Stack, PagesLieBelowEachOtherWithAGapAround) {
    const Page_Stack stack{{100, 200}, 3};
    EXPECT_EQ(stack.width(), 120);
    EXPECT_EQ(stack.height(), 10 + 3 * 210);
    EXPECT_EQ(stack.topOf(0), 10);
    EXPECT_EQ(stack.topOf(2), 430);
}

TEST(Page_Stack, EveryHeightHasItsPage) {
    const Page_Stack stack{{100, 200}, 3};
    EXPECT_EQ(stack.pageAt(-50), 0);
    EXPECT_EQ(stack.pageAt(209), 0);
    EXPECT_EQ(stack.pageAt(220), 1);
    EXPECT_EQ(stack.pageAt(100'000), 2);
}

TEST(Zoom, APercentIsItselfWithinItsLimits) {
    EXPECT_EQ(percentOf(150, letter, {300, 300}, 96), 150);
    EXPECT_EQ(percentOf(3, letter, {300, 300}, 96), 10);
    EXPECT_EQ(percentOf(1000, letter, {300, 300}, 96), 400);
}

TEST(Zoom, PageWidthAndWholePageFollowTheView) {
    // A letter is 816 by 1056 pixels on a screen of 96 dots to the inch.
    EXPECT_EQ(percentOf(zoomPageWidth, letter, {816 + 20, 400}, 96), 100);
    EXPECT_EQ(percentOf(zoomWholePage, letter, {5000, 528 + 20}, 96), 50);
    EXPECT_EQ(percentOf(zoomWholePage, letter, {408 + 20, 5000}, 96), 50);
    EXPECT_EQ(percentOf(zoomWholePage, letter, {0, 0}, 96), 10);
    EXPECT_EQ(pagePixels(100, letter, 96), QSize(816, 1056));
    EXPECT_EQ(pagePixels(50, letter, 192), QSize(816, 1056));
}

TEST(Zoom, StepsGoThroughTheUsualPercents) {
    EXPECT_EQ(nextZoom(100), 125);
    EXPECT_EQ(nextZoom(101), 125);
    EXPECT_EQ(nextZoom(400), 400);
    EXPECT_EQ(previousZoom(100), 90);
    EXPECT_EQ(previousZoom(101), 100);
    EXPECT_EQ(previousZoom(10), 10);
}

TEST(Page_Sheet, APaperIsKnownInEitherOrientation) {
    Page_Settings page;
    EXPECT_STREQ(paperKinds.at(paperKindOf(page).value()).name, "Letter");
    EXPECT_FALSE(isLandscape(page));
    page = onPaper(page, 11906, 16838, true);
    EXPECT_EQ(page.PaperWidth, 16838);
    EXPECT_EQ(page.PaperHeight, 11906);
    EXPECT_TRUE(isLandscape(page));
    EXPECT_STREQ(paperKinds.at(paperKindOf(page).value()).name, "A4");
    page.PaperWidth = 5000;
    EXPECT_EQ(paperKindOf(page), std::nullopt);
}

TEST(Page_Sheet, MarginsLeaveAnInchForTheTable) {
    Page_Settings page;
    EXPECT_TRUE(marginsFit(page));
    page.LeftMargin = 12240 - 1440 - 1440;
    EXPECT_TRUE(marginsFit(page));
    page.LeftMargin += 1;
    EXPECT_FALSE(marginsFit(page));
    page = {};
    page.TopMargin = 15840 - 1440 - 735 - 360 - 1440;
    EXPECT_TRUE(marginsFit(page));
    page.TopMargin += 1;
    EXPECT_FALSE(marginsFit(page));
}

} // namespace
} // namespace zorvane::ui
