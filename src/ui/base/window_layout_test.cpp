// SPDX-License-Identifier: MIT
#include "ui/base/window_layout.h"

#include <gtest/gtest.h>

#include <array>

namespace zorvane::ui {
namespace {

constexpr double formWidth = 6840;
constexpr double formHeight = 7020; // a menu of 390 twips over the inner area
constexpr double statusTop = 419;   // pixels: 6285 twips

Window_Layout design(double twipsPerPixel = 15) {
    return designLayout({twipsPerPixel, twipsPerPixel}, formWidth, formHeight);
}

TEST(Window_Layout_Test, StandsAsDesigned) {
    const Window_Layout layout = design();
    EXPECT_EQ(layout.Frame2, (Twips_Rect{4, 4, 447, 127}));
    EXPECT_EQ(layout.Frame3, (Twips_Rect{4, 134, 447, 273}));
    EXPECT_EQ(layout.PicLineHoriz.top, 130);
    EXPECT_EQ(layout.FLX_Configuration, (Twips_Rect{120, 180, 6435, 1635}));
    EXPECT_EQ(layout.FLX_Settings, (Twips_Rect{90, 210, 6495, 3795}));
    EXPECT_EQ(layout.panelWidths, (std::array<double, 7>{1852, 1587, 1852, 5027, 661, 661, 450}));
}

TEST(Window_Layout_Test, GivesAChangeOfWidthToBothFramesAndTheirGrids) {
    const Window_Layout layout = resized(design(), formWidth + 1500, formHeight);
    EXPECT_EQ(layout.Frame2, (Twips_Rect{4, 4, 547, 127}));
    EXPECT_EQ(layout.Frame3, (Twips_Rect{4, 134, 547, 273}));
    EXPECT_EQ(layout.FLX_Configuration, (Twips_Rect{120, 180, 7935, 1635}));
    EXPECT_EQ(layout.FLX_Settings, (Twips_Rect{90, 210, 7995, 3795}));
    EXPECT_EQ(layout.line1Right, 556);
    EXPECT_EQ(layout.savedWidth, formWidth + 1500);
}

TEST(Window_Layout_Test, MakesTheSplitterFiftyTwipsWiderThanTheFrames) {
    const Window_Layout layout = resized(design(), formWidth + 1500, formHeight);
    EXPECT_EQ(layout.PicLineHoriz.width, 550); // 50 twips are 3 pixels
    EXPECT_EQ(layout.PicLineHoriz.left, 4);
    EXPECT_EQ(layout.PicLineHoriz.top, 130);
}

TEST(Window_Layout_Test, GivesAChangeOfHeightToTheLowerFrameAlone) {
    const Window_Layout layout = resized(design(), formWidth, formHeight + 1500);
    EXPECT_EQ(layout.Frame2.height, 127);
    EXPECT_EQ(layout.FLX_Configuration.height, 1635);
    EXPECT_EQ(layout.Frame3, (Twips_Rect{4, 134, 447, 373}));
    EXPECT_EQ(layout.FLX_Settings.height, 5295);
}

TEST(Window_Layout_Test, GivesTheMessagePanelWhatTheOthersLeave) {
    const Window_Layout layout = resized(design(), 12000, formHeight);
    EXPECT_EQ(layout.panelWidths[3], 12000 - 7063 - 200);
    EXPECT_EQ(layout.panelWidths[0], 1852);
    EXPECT_EQ(layout.panelWidths[6], 450);
}

TEST(Window_Layout_Test, KeepsTheMessagePanelOneTwipWideInASmallWindow) {
    EXPECT_EQ(resized(design(), 7263, formHeight).panelWidths[3], 1);
    EXPECT_EQ(resized(design(), 7264, formHeight).panelWidths[3], 1);
    EXPECT_EQ(resized(design(), 7265, formHeight).panelWidths[3], 2);
    EXPECT_EQ(resized(design(), 1500, formHeight).panelWidths[3], 1);
}

TEST(Window_Layout_Test, KeepsItsHeightInAFormTooLowForTheLowerFrame) {
    // Status bar 345, upper grid 1635, the lower frame's top at 2010.
    const Window_Layout low = resized(design(), formWidth, 3989);
    EXPECT_EQ(low.Frame3.height, 273);
    EXPECT_EQ(low.savedHeight, formHeight);
    const Window_Layout fits = resized(design(), formWidth, 3990);
    EXPECT_EQ(fits.Frame3.height, 71);
    EXPECT_EQ(fits.FLX_Settings.height, 765);
    EXPECT_EQ(fits.savedHeight, 3990);
    EXPECT_EQ(resized(low, formWidth, formHeight), resized(design(), formWidth, formHeight));
}

TEST(Window_Layout_Test, DoesntApplyAHeightThatIsntAboveZero) {
    Window_Layout layout = design();
    layout.PicLineHoriz.top += 200;
    layout = splitterReleased(layout);
    EXPECT_EQ(layout.Frame3.height, 73);
    EXPECT_EQ(layout.FLX_Settings.height, 795);
    layout.FLX_Configuration.height = 0; // lets a form this low be laid out at all
    const Window_Layout low = resized(layout, formWidth, formHeight - 73 * 15);
    EXPECT_EQ(low.Frame3.height, 73);
    EXPECT_EQ(low.FLX_Settings.height, 795);
    EXPECT_EQ(low.savedHeight, formHeight - 73 * 15);
}

TEST(Window_Layout_Test, ComesBackFromAnySizeWithoutDrift) {
    Window_Layout layout = design(14.4);
    const Window_Layout before = resized(layout, formWidth, formHeight);
    for (int step = 1; step <= 500; ++step)
        layout = resized(layout, formWidth + 7 * step, formHeight + 11 * step);
    layout = resized(layout, formWidth, formHeight);
    EXPECT_NEAR(layout.Frame3.width, before.Frame3.width, 1e-6);
    EXPECT_NEAR(layout.Frame3.height, before.Frame3.height, 1e-6);
    EXPECT_NEAR(layout.FLX_Settings.height, before.FLX_Settings.height, 1e-6);
}

TEST(Window_Layout_Test, IsTheSameInTwipsAtAnyScale) {
    for (const double perPixel : {15.0, 10.0, 7.5}) {
        const Window_Layout layout = resized(design(perPixel), formWidth + 3000, formHeight + 1500);
        EXPECT_DOUBLE_EQ(layout.Frame2.width * perPixel, 9705);
        EXPECT_DOUBLE_EQ(layout.Frame3.height * perPixel, 5595);
        EXPECT_DOUBLE_EQ(layout.FLX_Settings.width, 9495);
        EXPECT_DOUBLE_EQ(layout.FLX_Settings.height, 5295);
    }
}

TEST(Splitter_Test, FollowsTheMouseInsideTheLimits) {
    EXPECT_EQ(splitterTop(design(), 40, statusTop), 170);
    EXPECT_EQ(splitterTop(design(), -40, statusTop), 90);
}

TEST(Splitter_Test, StopsAThousandTwipsAboveTheStatusBar) {
    const double top = splitterTop(design(), 5000, statusTop);
    EXPECT_NEAR(top * 15, 6285 - 1000, 1e-9);
}

TEST(Splitter_Test, StopsAThousandTwipsBelowTheTopOfTheForm) {
    EXPECT_NEAR(splitterTop(design(), -5000, statusTop) * 15, 1000, 1e-9);
}

TEST(Splitter_Test, StaysBelowTheTopInAFormLowerThanBothLimits) {
    EXPECT_NEAR(splitterTop(design(), 10, 60) * 15, 1000, 1e-9);
}

TEST(Splitter_Test, MovesHeightFromTheLowerFrameToTheUpperOneWhenLetGo) {
    Window_Layout layout = design();
    layout.PicLineHoriz.top = 170;
    layout = splitterReleased(layout);
    EXPECT_EQ(layout.Frame2, (Twips_Rect{4, 4, 447, 167}));
    EXPECT_EQ(layout.FLX_Configuration.height, 1635 + 600);
    EXPECT_EQ(layout.Frame3, (Twips_Rect{4, 174, 447, 233}));
    EXPECT_EQ(layout.FLX_Settings.top, 300);
    EXPECT_EQ(layout.FLX_Settings.height, 233 * 15 - 300);
    EXPECT_EQ(layout.savedSplitterTop, 170);
}

TEST(Splitter_Test, CountsTheNextDragFromWhereItWasLetGo) {
    Window_Layout layout = design();
    layout.PicLineHoriz.top = 170;
    layout = splitterReleased(layout);
    layout.PicLineHoriz.top = 160;
    layout = splitterReleased(layout);
    EXPECT_EQ(layout.Frame2.height, 157);
    EXPECT_EQ(layout.Frame3.top, 164);
}

} // namespace
} // namespace zorvane::ui
