// SPDX-License-Identifier: MIT
#include "ui/grid/column_tip.h"
#include "ui/main/main_window.h"
#include "ui/testing/sample_window.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

/// A window whose lower grid's first column has its border at `border`, in pixels of the heading.
struct Column_Tip_Test : testing::Test {
    Column_Tip_Test() {
        Flex_Grid_Events& events = window.FLX_Settings().events();
        events.MouseMove = [this](std::int16_t, std::int16_t, float, float) { tip.start(); };
        events.UserResizing = [this](std::int32_t, std::int32_t twips) { tip.drag(twips); };
        samples::fillWindow(window);
        window.show();
        QApplication::processEvents();
        border = header->sectionSize(0) - 1;
    }
    [[nodiscard]] QWidget* heading() const { return header->viewport(); }
    void press() { QTest::mousePress(heading(), Qt::LeftButton, {}, QPoint(border, 5)); }
    void moveTo(int x, int y = 5) { QTest::mouseMove(heading(), QPoint(x, y)); }
    void release(int x) { QTest::mouseRelease(heading(), Qt::LeftButton, {}, QPoint(x, 5)); }
    [[nodiscard]] std::string told() const {
        return tip.findChild<QLabel*>("Label1")->text().toStdString() + " " +
               tip.findChild<QLabel*>("lblTip")->text().toStdString();
    }

    Main_Window window;
    Column_Tip& tip = window.picTip();
    QHeaderView* header = window.FLX_Settings().view().horizontalHeader();
    int border = 0;
};

TEST(Column_Width_Text_Test, IsInInchesWithTwoDecimals) {
    EXPECT_EQ(columnWidthText(1440), "1.00 inch");
    EXPECT_EQ(columnWidthText(1100), "0.76 inch");
    EXPECT_EQ(columnWidthText(180), "0.13 inch") << "a half goes up";
    EXPECT_EQ(columnWidthText(0), "0.00 inch");
    EXPECT_EQ(columnWidthText(32767), "22.75 inch");
}

TEST_F(Column_Tip_Test, IsHiddenAtItsDesignPlaceInTheColoursOfATip) {
    EXPECT_FALSE(tip.isVisible());
    EXPECT_EQ(tip.objectName(), "picTip");
    EXPECT_EQ(tip.geometry(), QRect(180, 170, 111, 19));
    EXPECT_EQ(tip.frameShape(), QFrame::NoFrame);
    EXPECT_EQ(tip.palette().color(QPalette::Window), QToolTip::palette().color(QPalette::ToolTipBase));
    EXPECT_EQ(tip.findChild<QLabel*>("lblTip")->palette().color(QPalette::WindowText),
              QToolTip::palette().color(QPalette::ToolTipText));
    EXPECT_EQ(tip.findChild<QLabel*>("Label1")->text(), "Width :");
}

TEST_F(Column_Tip_Test, WatchesTheMouseFromItsFirstMoveOverTheGridUntilItLeaves) {
    EXPECT_FALSE(tip.watching());
    moveTo(50);
    EXPECT_TRUE(tip.watching());
    EXPECT_FALSE(tip.isVisible()) << "no border is dragged";
    moveTo(50, -60);
    EXPECT_FALSE(tip.watching());
}

TEST_F(Column_Tip_Test, TellsTheWidthWhileABorderIsDragged) {
    moveTo(border);
    press();
    EXPECT_FALSE(tip.isVisible());
    moveTo(border + 20);
    ASSERT_TRUE(tip.isVisible());
    const std::int32_t twips = window.FLX_Settings().ColWidth(0);
    EXPECT_EQ(twips, 2505) << "147 pixels and 20";
    EXPECT_EQ(told(), "Width : " + columnWidthText(twips).toStdString());
    const QPoint mouse = heading()->mapTo(window.centralWidget(), QPoint(border + 20, 5));
    EXPECT_EQ(tip.pos(), mouse + QPoint(8, 8)) << "120 twips right of the mouse and below it";
    moveTo(border + 40);
    EXPECT_EQ(told(), "Width : " + columnWidthText(twips + 20 * 15).toStdString());
    release(border + 40);
    EXPECT_FALSE(tip.isVisible());
    moveTo(border + 10);
    EXPECT_FALSE(tip.isVisible()) << "the drag is over";
}

TEST_F(Column_Tip_Test, HidesWhenTheMouseLeavesTheGridInADrag) {
    moveTo(border);
    press();
    moveTo(border + 10);
    ASSERT_TRUE(tip.isVisible());
    moveTo(border + 20, -60);
    EXPECT_FALSE(tip.isVisible());
    release(border + 20);
}

TEST_F(Column_Tip_Test, StaysInsideTheForm) {
    moveTo(border);
    press();
    moveTo(header->width() - 2);
    ASSERT_TRUE(tip.isVisible());
    EXPECT_TRUE(window.centralWidget()->rect().contains(tip.geometry()));
    release(header->width() - 2);
}

TEST_F(Column_Tip_Test, StopsWatchingWhenItIsToldTo) {
    moveTo(50);
    tip.stop();
    EXPECT_FALSE(tip.watching());
    tip.drag(1000);
    EXPECT_FALSE(tip.isVisible());
}

} // namespace
} // namespace zorvane::ui
