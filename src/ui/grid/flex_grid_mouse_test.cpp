// SPDX-License-Identifier: MIT
#include "ui/testing/grid_fixture.h"

#include <QMouseEvent>

namespace zorvane::ui {
namespace {

/// What a grid tells of the mouse, in the order of a click and a double click.
class Mouse_Test : public samples::Grid_Fixture {
  protected:
    Mouse_Test() {
        view->setEditable(false);
        view->events = {};
        view->events.MouseDown = [this](std::int16_t, std::int16_t, float, float) { told.push_back("down"); };
        view->events.MouseUp = [this](std::int16_t button, std::int16_t shift, float x, float y) {
            told.push_back("up");
            lastButton = button;
            lastShift = shift;
            lastX = x;
            lastY = y;
        };
        view->events.MouseMove = [this](std::int16_t, std::int16_t, float x, float y) {
            lastX = x;
            lastY = y;
        };
        view->events.Click = [this] { told.push_back("click"); };
        view->events.DblClick = [this] { told.push_back("double"); };
    }
    int lastButton = 0;
    int lastShift = 0;
    float lastX = 0;
    float lastY = 0;
};

TEST_F(Mouse_Test, AClickIsPressReleaseClick) {
    show();
    click(2, 0);
    EXPECT_EQ(told, (Told{"down", "up", "click"}));
    EXPECT_EQ(lastButton, 1);
    EXPECT_EQ(lastShift, 0);
}

TEST_F(Mouse_Test, TheLastReleaseOfADoubleClickIsNoClick) {
    show();
    const QPoint place = centre(2, 0);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    QMouseEvent second(QEvent::MouseButtonDblClick, place, view->viewport()->mapToGlobal(place),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &second);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(told, (Told{"down", "up", "click", "double", "up"}));
    told.clear();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(told, (Told{"down", "up", "click"}));
}

TEST_F(Mouse_Test, PlacesAreTwipsFromTheTopOfTheHeading) {
    show();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_FLOAT_EQ(lastX, 300);
    EXPECT_FLOAT_EQ(lastY, 285 + 150);
    const QPoint heading(30, 4);
    QWidget& header = *view->horizontalHeader()->viewport();
    QMouseEvent move(QEvent::MouseMove, heading, header.mapToGlobal(heading), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&header, &move);
    EXPECT_FLOAT_EQ(lastX, 450);
    EXPECT_FLOAT_EQ(lastY, 60);
}

TEST_F(Mouse_Test, APlaceFarOutOnAWideScreenIsHeldTo16Bits) {
    show();
    QMouseEvent far(QEvent::MouseMove, QPointF(2600, 2600),
                    view->viewport()->mapToGlobal(QPointF(2600, 2600)), Qt::NoButton, Qt::LeftButton,
                    Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &far);
    EXPECT_FLOAT_EQ(lastX, 32767);
    EXPECT_FLOAT_EQ(lastY, 32767);
    QMouseEvent left(QEvent::MouseMove, QPointF(-2600, 0), view->viewport()->mapToGlobal(QPointF(-2600, 0)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &left);
    EXPECT_FLOAT_EQ(lastX, -32768);
}

TEST_F(Mouse_Test, AClickInTheHeadingIsTold) {
    show();
    QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(30, 4));
    EXPECT_EQ(told, (Told{"down", "up", "click"}));
    EXPECT_LT(lastY, 285);
}

TEST_F(Mouse_Test, TheRowOfAPlaceIsTheRowOnTheScreenAtAnyScale) {
    // 290 twips are 19.33 pixels, drawn as 19: counted in pixels the place would slip off its row.
    for (std::int32_t r = 0; r <= 20; ++r)
        grid->setRowHeight(r, 290);
    show();
    for (std::int32_t row = 1; row <= 11; ++row) {
        click(row, 0);
        EXPECT_EQ(static_cast<int>(lastY / 290) + grid->TopRow() - 1, row);
    }
}

} // namespace
} // namespace zorvane::ui
