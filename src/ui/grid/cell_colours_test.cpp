// SPDX-License-Identifier: MIT
#include "ui/base/contrast.h"
#include "ui/grid/cell_colours.h"

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

const QColor light(255, 255, 255);
const QColor dark(35, 35, 35);
const Cell_Colours yellow{{255, 255, 192}, {0, 0, 0}};

TEST(CellColours, StayOnALightDesktop) { EXPECT_EQ(fittedTo(light, yellow), yellow); }

TEST(CellColours, ADarkGroundStaysOnADarkDesktop) {
    const Cell_Colours alarm{{128, 0, 0}, {255, 255, 255}};
    EXPECT_EQ(fittedTo(dark, alarm), alarm);
}

TEST(CellColours, APaleGroundIsDarkAndOfTheSameHue) {
    const Cell_Colours fitted = fittedTo(dark, yellow);
    EXPECT_LT(fitted.back.lightness(), 70);
    EXPECT_NEAR(fitted.back.hslHue(), yellow.back.hslHue(), 3);
    EXPECT_GE(contrastOf(fitted.fore, fitted.back), 4.5);
}

/// Every pair of 64 coarse colours, on a desktop with that ground.
TEST(CellColours, NoTextIsHarderToReadThanItWas) {
    const auto coarse = [](int number) {
        return QColor(number / 16 * 85, number / 4 % 4 * 85, number % 4 * 85);
    };
    for (int back = 0; back < 64; ++back)
        for (int fore = 0; fore < 64; ++fore) {
            const Cell_Colours own{coarse(back), coarse(fore)};
            const Cell_Colours fitted = fittedTo(dark, own);
            EXPECT_GE(contrastOf(fitted.fore, fitted.back) + 0.01,
                      std::min(4.5, contrastOf(own.fore, own.back)))
                << own.back.name().toStdString() << " " << own.fore.name().toStdString();
        }
}

} // namespace
} // namespace zorvane::ui
