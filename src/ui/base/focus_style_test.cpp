// SPDX-License-Identifier: MIT
#include "ui/base/contrast.h"
#include "ui/base/focus_style.h"

#include <QImage>
#include <QPainter>
#include <QStyleOption>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

/// As a desktop tells it that gives no colours for hints and for what is disabled.
QPalette darkDesktop() {
    QPalette palette(QColor(35, 38, 41));
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, QColor(35, 38, 41));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(239, 240, 241));
        palette.setColor(QPalette::Disabled, role, QColor(24, 26, 28));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    return palette;
}

TEST(FocusStyle, HintsAndDisabledWordsCanBeReadInTheDark) {
    QPalette palette = darkDesktop();
    Focus_Style style(QStringLiteral("Fusion"));
    static_cast<QStyle&>(style).polish(palette);
    const QColor ground(35, 38, 41);
    const QColor faint(137, 139, 141);
    EXPECT_GT(contrastOf(faint, ground), 4);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        EXPECT_EQ(palette.color(QPalette::Disabled, role), faint) << role;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        EXPECT_EQ(palette.color(group, QPalette::PlaceholderText), faint) << group;
    EXPECT_EQ(palette.color(QPalette::Active, QPalette::Text), QColor(239, 240, 241));
}

TEST(FocusStyle, ColoursThatCanBeReadStay) {
    QPalette palette(QColor(239, 239, 239));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(120, 120, 120));
    palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    Focus_Style style(QStringLiteral("Fusion"));
    static_cast<QStyle&>(style).polish(palette);
    EXPECT_EQ(palette.color(QPalette::Disabled, QPalette::Text), QColor(120, 120, 120));
    EXPECT_EQ(palette.color(QPalette::Active, QPalette::PlaceholderText), QColor(0, 0, 0, 128));
}

/// A box without a tick as it is drawn, on the ground of a table.
QImage paintedBox(const QPalette& palette) {
    QStyleOptionButton option;
    option.rect = QRect(0, 0, 16, 16);
    option.palette = palette;
    option.state = QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Off;
    QImage picture(option.rect.size(), QImage::Format_RGB32);
    picture.fill(palette.color(QPalette::Base));
    QPainter painter(&picture);
    Focus_Style(QStringLiteral("Fusion"))
        .drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, nullptr);
    return picture;
}

TEST(FocusStyle, ABoxWithoutATickHasAFrameInTheDark) {
    const QImage picture = paintedBox(darkDesktop());
    const QColor frame(137, 139, 141);
    for (const auto& [x, y] : {std::pair(8, 0), std::pair(0, 8), std::pair(8, 15), std::pair(15, 8)})
        EXPECT_EQ(picture.pixelColor(x, y), frame) << x << ", " << y;
    EXPECT_NE(paintedBox(QPalette(QColor(239, 239, 239))).pixelColor(8, 0), frame);
}

} // namespace
} // namespace zorvane::ui
