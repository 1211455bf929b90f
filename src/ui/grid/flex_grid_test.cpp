// SPDX-License-Identifier: MIT
#include "grids/testing/flex_grid_suite.h"
#include "ui/grid/flex_grid.h"
#include "ui/grid/packed_colour.h"
#include "ui/testing/grid_fixture.h"
#include "values/colours.h"

#include <QAccessible>
#include <QScrollBar>

namespace zorvane::ui {
namespace {

/// A grid in a window that nobody looks at.
struct Widget_Grid_Factory {
    VSFlexGrid& grid() { return grid_; }
    QWidget window_;
    Flex_Grid grid_{*new Flex_Grid_View(&window_)};
};

/// A grid on the screen, with events served before each use.
struct Shown_Grid_Factory {
    Shown_Grid_Factory() { window_.show(); }
    VSFlexGrid& grid() {
        QApplication::processEvents();
        return grid_;
    }
    QWidget window_;
    Flex_Grid grid_{*new Flex_Grid_View(&window_)};
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Widget, Flex_Grid_Test, Widget_Grid_Factory);
INSTANTIATE_TYPED_TEST_SUITE_P(Shown, Flex_Grid_Test, Shown_Grid_Factory);

namespace {

using Flex_Grid_View_Test = samples::Grid_Fixture;

QColor pixelIn(QWidget& widget, const QPoint& place) { return QColor(widget.grab().toImage().pixel(place)); }

TEST_F(Flex_Grid_View_Test, ShowsRowZeroAsItsHeader) {
    show();
    EXPECT_EQ(view->model()->rowCount(), 20);
    EXPECT_EQ(view->model()->headerData(1, Qt::Horizontal).toString(), "0,1");
    EXPECT_EQ(view->model()->index(0, 1).data().toString(), "1,1");
    EXPECT_EQ(view->horizontalHeader()->height(), 19);
    EXPECT_EQ(view->rowHeight(0), 19);
    EXPECT_EQ(view->columnWidth(0), 100);
}

TEST_F(Flex_Grid_View_Test, PaintsEachCellInItsOwnColours) {
    stand(2, 1);
    grid->setCellBackColor(0xC0FFFF);
    grid->setCellForeColor(0x0000FF);
    stand(1, 0);
    show();
    const QPoint corner = view->visualRect(view->model()->index(1, 1)).bottomRight() - QPoint(3, 3);
    EXPECT_EQ(pixelIn(*view->viewport(), corner), colourFrom(0xC0FFFF));
    EXPECT_EQ(view->model()->index(1, 1).data(Qt::ForegroundRole).value<QBrush>().color(), QColor(255, 0, 0));
}

TEST_F(Flex_Grid_View_Test, TellsTheTwoMarksOfACellApartByCornerAndFilling) {
    view->cells().corners = [](std::int32_t row, std::int32_t) {
        return row == 2 ? int{Corner_Changed} : row == 3 ? int{Corner_Differs} : 0;
    };
    stand(1, 0);
    show();
    const auto upperRight = [&](int row) {
        return pixelIn(*view->viewport(),
                       view->visualRect(view->model()->index(row - 1, 1)).topRight() + QPoint(-1, 1));
    };
    const auto lowerRight = [&](int row, int inside) {
        return pixelIn(*view->viewport(), view->visualRect(view->model()->index(row - 1, 1)).bottomRight() -
                                              QPoint(inside, inside));
    };
    const QColor text = view->palette().color(QPalette::Text);
    const QColor ground = view->palette().color(QPalette::Base);
    EXPECT_EQ(upperRight(2), text);
    EXPECT_EQ(lowerRight(2, 0), ground);
    EXPECT_EQ(upperRight(3), ground);
    EXPECT_EQ(lowerRight(3, 0), text);
    EXPECT_EQ(lowerRight(3, 2), ground) << "it is empty";
    EXPECT_EQ(upperRight(4), ground);
    EXPECT_EQ(lowerRight(4, 0), ground);
    grid->setColAlignment(1, Align_Right_Top);
    view->flush();
    EXPECT_EQ(lowerRight(3, 0), ground) << "the text is there";
    EXPECT_EQ(pixelIn(*view->viewport(), view->visualRect(view->model()->index(2, 1)).bottomLeft()), text);
}

TEST_F(Flex_Grid_View_Test, ShowsACellsColoursAlsoWhileItIsTheCurrentOne) {
    stand(2, 1);
    grid->setCellBackColor(0x80C0FF);
    show();
    const QRect cell = view->visualRect(view->model()->index(1, 1));
    EXPECT_EQ(pixelIn(*view->viewport(), cell.bottomRight() - QPoint(4, 4)), colourFrom(0x80C0FF));
}

TEST_F(Flex_Grid_View_Test, PaintsTheGroundOfAnUnknownColourWordBlack) {
    stand(2, 1);
    grid->setCellBackColor(colourOf("TEAL"));
    stand(1, 0);
    show();
    const QPoint corner = view->visualRect(view->model()->index(1, 1)).bottomRight() - QPoint(3, 3);
    EXPECT_EQ(pixelIn(*view->viewport(), corner), QColor(0, 0, 0));
}

TEST_F(Flex_Grid_View_Test, TakesTheDesktopsColoursForACellWithoutItsOwn) {
    QPalette dark(QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    view->setPalette(dark);
    show();
    const QRect cell = view->visualRect(view->model()->index(4, 1));
    EXPECT_EQ(pixelIn(*view->viewport(), cell.bottomRight() - QPoint(3, 3)), QColor(35, 35, 35));
}

TEST_F(Flex_Grid_View_Test, TellsAScreenReaderTheStateOfACell) {
    view->cells().describe = [](std::int32_t row, std::int32_t col) {
        return row == 2 && col == 1 ? "writing" : "modifiable";
    };
    show();
    EXPECT_EQ(view->model()->index(1, 1).data(Qt::AccessibleDescriptionRole).toString(), "writing");
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(view);
    ASSERT_NE(table, nullptr);
    QAccessibleInterface* cell = table->tableInterface()->cellAt(1, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->text(QAccessible::Name), "2,1");
    EXPECT_EQ(cell->text(QAccessible::Description), "writing");
}

TEST_F(Flex_Grid_View_Test, FollowsWhatTheOwnerSelectsWithoutTellingItBack) {
    show();
    stand(3, 2);
    grid->setRowSel(5);
    QApplication::processEvents();
    EXPECT_EQ(view->currentIndex(), view->model()->index(2, 2));
    EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 3);
    EXPECT_TRUE(told.empty());
}

TEST_F(Flex_Grid_View_Test, ANewOneTellsNothing) {
    Flex_Grid_View fresh(&window);
    int told = 0;
    fresh.events.RowColChange = fresh.events.SelChange = [&] { ++told; };
    QApplication::processEvents();
    EXPECT_EQ(told, 0);
}

TEST_F(Flex_Grid_View_Test, DoesntScrollForTheOwner) {
    show();
    stand(20, 0);
    QApplication::processEvents();
    EXPECT_EQ(grid->TopRow(), 1);
    EXPECT_EQ(view->currentIndex().row(), 19);
}

TEST_F(Flex_Grid_View_Test, KnowsTheFirstRowOnTheScreen) {
    show();
    EXPECT_EQ(grid->TopRow(), 1);
    view->verticalScrollBar()->setValue(4);
    EXPECT_EQ(grid->TopRow(), 5);
    grid->setRows(0);
    EXPECT_EQ(grid->TopRow(), 1);
}

/// Counts how often a widget is painted.
class Paint_Counter final : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
    int paints = 0;
};

TEST_F(Flex_Grid_View_Test, PaintsNothingOfAFillInProgress) {
    show();
    Paint_Counter counter;
    view->viewport()->installEventFilter(&counter);
    grid->setVisible(false);
    grid->setRows(6);
    grid->setTextMatrix(1, 0, "half");
    view->viewport()->repaint();
    EXPECT_EQ(counter.paints, 0);
    grid->setVisible(true);
    view->viewport()->repaint();
    EXPECT_EQ(counter.paints, 1);
    EXPECT_TRUE(view->isVisible());
}

TEST_F(Flex_Grid_View_Test, KeepsTheFocusThroughAFill) {
    show();
    grid->setVisible(false);
    grid->setTextMatrix(1, 0, "new");
    grid->setVisible(true);
    QApplication::processEvents();
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(Flex_Grid_View_Test, IsHiddenWhenItStaysInvisible) {
    show();
    grid->setVisible(false);
    QApplication::processEvents();
    EXPECT_FALSE(view->isVisible());
    grid->setVisible(true);
    EXPECT_TRUE(view->isVisible());
}

TEST_F(Flex_Grid_View_Test, LeavesTheTabOrder) {
    show();
    grid->setTabStop(false);
    EXPECT_EQ(view->focusPolicy() & Qt::TabFocus, 0);
    EXPECT_TRUE(view->hasFocus());
    grid->setTabStop(true);
    EXPECT_NE(view->focusPolicy() & Qt::TabFocus, 0);
}

TEST_F(Flex_Grid_View_Test, TakesItsFontInPoints) {
    grid->setFontSize(11.25);
    EXPECT_EQ(view->font().pointSizeF(), 11.25);
    EXPECT_EQ(view->horizontalHeader()->font().pointSizeF(), 11.25);
}

TEST_F(Flex_Grid_View_Test, KeepsWidthsInTwipsThatArentWholePixels) {
    grid->setColWidth(1, 1507);
    show();
    EXPECT_EQ(grid->ColWidth(1), 1507);
    EXPECT_EQ(view->columnWidth(1), 100);
}

TEST_F(Flex_Grid_View_Test, TellsOnceThatTheUserDraggedAColumn) {
    std::vector<std::string> resizes;
    view->events.AfterUserResize = [&](std::int32_t row, std::int32_t col) {
        resizes.push_back(place(row, col) + " " + std::to_string(grid->ColWidth(col)));
    };
    show();
    QWidget& header = *view->horizontalHeader()->viewport();
    QTest::mousePress(&header, Qt::LeftButton, {}, QPoint(199, 9));
    QTest::mouseMove(&header, QPoint(210, 9));
    QTest::mouseMove(&header, QPoint(219, 9));
    EXPECT_TRUE(resizes.empty());
    QTest::mouseRelease(&header, Qt::LeftButton, {}, QPoint(219, 9));
    QApplication::processEvents();
    EXPECT_EQ(resizes, (std::vector<std::string>{"-1,1 1800"}));
}

TEST_F(Flex_Grid_View_Test, HoldsRowsOfDifferentHeights) {
    grid->setRowHeight(3, 570);
    show();
    EXPECT_EQ(view->rowHeight(1), 19);
    EXPECT_EQ(view->rowHeight(2), 38);
    grid->setRowHeight(3, 285);
    QApplication::processEvents();
    EXPECT_EQ(view->rowHeight(2), 19);
}

TEST_F(Flex_Grid_View_Test, SelectsWholeRowsInASelector) {
    view->setEditable(false);
    view->setSelectsRows(true);
    show();
    click(3, 1);
    EXPECT_EQ(grid->Row(), 3);
    EXPECT_EQ(grid->RowSel(), 3);
    EXPECT_EQ(grid->ColSel(), 2);
    EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 3);
    key(Qt::Key_F2);
    type("x");
    EXPECT_FALSE(view->isEditing());
}

} // namespace
} // namespace zorvane::ui
