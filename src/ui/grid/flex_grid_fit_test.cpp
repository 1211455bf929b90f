// SPDX-License-Identifier: MIT
// The whole text of what is cut, and columns as wide as their texts.

#include "ui/testing/grid_fixture.h"

#include <QHelpEvent>
#include <QToolTip>

namespace zorvane::ui {
namespace {

class Fit_Test : public samples::Grid_Fixture {
  protected:
    Fit_Test() {
        view->setFitsColumns();
        view->events.UserResizing = [this](std::int32_t col, std::int32_t twips) {
            told.push_back("UserResizing " + std::to_string(col) + " " + std::to_string(twips));
        };
        view->events.AfterUserResize = [this](std::int32_t row, std::int32_t col) {
            told.push_back("AfterUserResize " + std::to_string(row) + " " + std::to_string(col) + " " +
                           std::to_string(grid->ColWidth(col)));
        };
        grid->setTextMatrix(0, 1, "A heading that is far too long for its column");
        grid->setTextMatrix(3, 2, "A text with <b>marks</b> that its cell can't show whole");
    }
    ~Fit_Test() override { QToolTip::hideText(); }

    static void pointAt(QWidget& widget, QPoint place) {
        QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &help);
    }
    static bool showsNoTip() {
        return QTest::qWaitFor([] { return QToolTip::text().isEmpty(); });
    }
    QWidget& header() { return *view->horizontalHeader()->viewport(); }
    [[nodiscard]] QPoint border(int col) const {
        return {view->columnViewportPosition(col) + view->columnWidth(col) - 1, 5};
    }
    void doubleClickBorder(int col) {
        QTest::mouseClick(&header(), Qt::LeftButton, {}, border(col));
        told.clear();
        const QPoint place = border(col);
        QMouseEvent second(QEvent::MouseButtonDblClick, place, header().mapToGlobal(place), Qt::LeftButton,
                           Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&header(), &second);
        QTest::mouseRelease(&header(), Qt::LeftButton, {}, place);
        QApplication::processEvents();
    }
};

TEST_F(Fit_Test, ACutCellShowsItsTextWholeAndAsItStands) {
    show();
    pointAt(*view->viewport(), centre(3, 2));
    EXPECT_EQ(QToolTip::text(), "<p style='white-space:pre-wrap'>A text with &lt;b&gt;marks&lt;/b&gt; that "
                                "its cell can't show whole</p>");
}

TEST_F(Fit_Test, ACellThatShowsItsTextSaysNothing) {
    show();
    pointAt(*view->viewport(), centre(2, 2));
    EXPECT_TRUE(showsNoTip());
}

TEST_F(Fit_Test, WhatElseThereIsToSayComesAfterTheText) {
    view->cells().explain = [](std::int32_t, std::int32_t) { return "Write failed"; };
    show();
    pointAt(*view->viewport(), centre(2, 2));
    EXPECT_EQ(QToolTip::text(), "<p style='white-space:pre-wrap'>Write failed</p>");
    pointAt(*view->viewport(), centre(3, 2));
    EXPECT_TRUE(QToolTip::text().endsWith("whole\nWrite failed</p>")) << QToolTip::text().toStdString();
}

TEST_F(Fit_Test, ACutHeadingShowsItsText) {
    show();
    pointAt(header(), QPoint(view->columnViewportPosition(1) + 10, 5));
    EXPECT_EQ(QToolTip::text(),
              "<p style='white-space:pre-wrap'>A heading that is far too long for its column</p>");
    pointAt(header(), QPoint(view->columnViewportPosition(0) + 10, 5));
    EXPECT_TRUE(showsNoTip());
}

TEST_F(Fit_Test, ADoubleClickOnAHeadingsBorderIsADragToTheWidestText) {
    show();
    doubleClickBorder(1);
    const std::string width = std::to_string(grid->ColWidth(1));
    EXPECT_EQ(told, (Told{"UserResizing 1 " + width, "AfterUserResize -1 1 " + width}));
    pointAt(header(), QPoint(view->columnViewportPosition(1) + 10, 5));
    EXPECT_TRUE(showsNoTip()) << "the heading isn't cut any more";
    doubleClickBorder(2);
    pointAt(*view->viewport(), centre(3, 2));
    EXPECT_TRUE(showsNoTip()) << "nor is the cell";
    doubleClickBorder(0);
    EXPECT_LT(grid->ColWidth(0), 1500) << "a column becomes narrower, too";
}

TEST_F(Fit_Test, ATextFarBelowWhatIsSeenCounts) {
    fill(2600, 3);
    grid->setTextMatrix(2500, 0, "A text in a row that nobody has scrolled to so far");
    show();
    doubleClickBorder(0);
    const int text = view->fontMetrics().horizontalAdvance(
        QStringLiteral("A text in a row that nobody has scrolled to so far"));
    EXPECT_GT(grid->ColWidth(0), text * 15);
}

TEST_F(Fit_Test, AColumnWithoutAWidthStaysWithoutOne) {
    grid->setColWidth(1, 0);
    show();
    doubleClickBorder(0);
    EXPECT_EQ(grid->ColWidth(1), 0);
    EXPECT_LT(grid->ColWidth(0), 1500);
}

} // namespace
} // namespace zorvane::ui
