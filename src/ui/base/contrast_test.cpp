// SPDX-License-Identifier: MIT
#include "ui/base/contrast.h"

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

TEST(Contrast, GoesFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(contrastOf(Qt::white, Qt::white), 1);
    EXPECT_NEAR(contrastOf(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrastOf(Qt::white, QColor(118, 118, 118)), 4.54, 0.01);
}

TEST(Contrast, MixesByParts) {
    EXPECT_EQ(mixed(Qt::white, 1, Qt::black), QColor(Qt::white));
    EXPECT_EQ(mixed(QColor(200, 100, 0), 0.25, QColor(0, 100, 40)), QColor(50, 100, 30));
}

} // namespace
} // namespace zorvane::ui
