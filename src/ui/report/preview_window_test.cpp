// SPDX-License-Identifier: MIT
#include "reports/bands/page_document.h"
#include "ui/report/preview_window.h"
#include "ui/testing/control_walk.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using testing::ElementsAre;

using Words = std::vector<std::string>;

/// Letter pages with a black square inch each in the left upper corner of the paper.
Page_Document pagesOf(int count) {
    Page_Document document{12240, 15840, {}, {}, {}};
    for (int page = 0; page < count; ++page)
        document.pages.push_back({{Box_Item{0, 0, 1440, 1440, 0}}});
    return document;
}

const std::vector<Preview_Tool> fourTools = {{"&Setup...", "Page setup"},
                                             {"&Export...", "Export Report"},
                                             {"&Refresh", "Refresh Report"},
                                             {"Font Size...", "Font Size"}};

struct Preview : testing::Test {
    Preview() {
        window.resize(700, 800);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    template <class Widget> Widget& named(const char* name) { return *window.findChild<Widget*>(name); }
    void show(int pages) {
        document = pagesOf(pages);
        window.setPages(&document);
        QApplication::processEvents();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&window.view(), key, modifiers);
        QApplication::processEvents();
    }
    [[nodiscard]] Page_View& view() { return window.view(); }
    [[nodiscard]] QString zoomShown() { return named<QComboBox>("Zoom").currentText(); }
    /// A dot of what is painted, from the left upper corner of the page shown.
    [[nodiscard]] QColor dotOfPage(int x, int y) {
        const QImage picture = view().viewport()->grab().toImage();
        const int left =
            (view().viewport()->width() - pagePixels(view().percent(), {12240, 15840}, 96).width()) / 2;
        return picture.pixelColor(left + x, Page_Stack::gap + y);
    }

    Preview_Window window{QStringLiteral("Preview Print Page"), fourTools};
    Page_Document document;
};

TEST_F(Preview, NoTwoToolsAnswerToOneLetter) {
    show(3);
    EXPECT_EQ(doubles::keyClashes(window), std::vector<std::string>{});
}

TEST_F(Preview, WidgetsThatQtLeavesNamelessHaveNames) {
    show(3);
    EXPECT_EQ(named<QComboBox>("Zoom").lineEdit()->accessibleName(), "Zoom");
    EXPECT_EQ(named<QToolButton>("qt_toolbar_ext_button").accessibleName(), "More tools");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&view())->role(), QAccessible::Document);
}

TEST_F(Preview, TheReportsToolsComeFirstWithTheirTips) {
    std::vector<std::string> seen;
    for (int tool = 1; tool <= 4; ++tool) {
        const auto& button = *window.findChild<QToolButton*>(QStringLiteral("Tool%1").arg(tool));
        seen.push_back((button.text() + u'|' + button.toolTip()).toStdString());
    }
    EXPECT_THAT(seen, ElementsAre("&Setup...|Page setup", "&Export...|Export Report",
                                  "&Refresh|Refresh Report", "Font Size...|Font Size"));
    EXPECT_EQ(window.windowTitle(), "Preview Print Page");
}

TEST_F(Preview, ItsOwnToolsSayWhatTheyDo) {
    Words tips;
    for (const char* name : {"FirstPage", "PreviousPage", "NextPage", "LastPage", "ZoomOut", "ZoomIn"})
        tips.push_back(named<QAction>(name).toolTip().toStdString());
    EXPECT_THAT(tips, ElementsAre("First page (Ctrl+Home)", "Previous page (PgUp)", "Next page (PgDown)",
                                  "Last page (Ctrl+End)", "Zoom out (Ctrl+-)", "Zoom in (Ctrl++)"));
    EXPECT_EQ(named<QListWidget>("TOC").accessibleName(), "Table of contents");
}

TEST_F(Preview, AClickOnAToolTellsWhich) {
    std::vector<int> clicked;
    window.events.toolClicked = [&](int index) { clicked.push_back(index); };
    named<QToolButton>("Tool3").click();
    QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked.size() == 2; }));
    EXPECT_THAT(clicked, ElementsAre(2, 0));
}

TEST_F(Preview, WithoutPagesThereIsNothingToTurnOrPrint) {
    window.setPages(nullptr);
    EXPECT_EQ(view().page(), 0);
    EXPECT_FALSE(named<QSpinBox>("Page").isEnabled());
    EXPECT_FALSE(named<QAction>("NextPage").isEnabled());
    EXPECT_FALSE(named<QAction>("Print").isEnabled());
    press(Qt::Key_PageDown);
    EXPECT_EQ(view().page(), 0);
}

TEST_F(Preview, PageKeysTurnPages) {
    show(3);
    EXPECT_EQ(view().page(), 1);
    press(Qt::Key_PageDown);
    EXPECT_EQ(view().page(), 2);
    EXPECT_EQ(named<QSpinBox>("Page").value(), 2);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    EXPECT_EQ(view().page(), 3);
    EXPECT_FALSE(named<QAction>("NextPage").isEnabled());
    press(Qt::Key_PageUp);
    EXPECT_EQ(view().page(), 2);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view().page(), 3);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(view().page(), 1);
    named<QSpinBox>("Page").setValue(3);
    EXPECT_EQ(view().page(), 3);
}

TEST_F(Preview, ScrollingTurnsPagesToo) {
    show(3);
    view().setZoom(100);
    view().verticalScrollBar()->setValue(1056 + 200);
    EXPECT_EQ(view().page(), 2);
    EXPECT_EQ(named<QSpinBox>("Page").value(), 2);
}

TEST_F(Preview, ZoomKeysGoThroughTheUsualPercents) {
    show(1);
    view().setZoom(100);
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(view().percent(), 125);
    EXPECT_EQ(zoomShown(), "125 %");
    press(Qt::Key_Minus, Qt::ControlModifier);
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(zoomShown(), "90 %");
}

TEST_F(Preview, AZoomCanBeTypedOrChosen) {
    show(1);
    EXPECT_EQ(zoomShown(), "Whole page");
    auto& box = named<QComboBox>("Zoom");
    const auto type = [&](const QString& entry) {
        box.lineEdit()->selectAll();
        QTest::keyClicks(box.lineEdit(), entry);
        QTest::keyClick(box.lineEdit(), Qt::Key_Return);
    };
    type("130");
    EXPECT_EQ(view().percent(), 130);
    EXPECT_EQ(zoomShown(), "130 %");
    type("60 %");
    EXPECT_EQ(view().percent(), 60);
    type("large");
    EXPECT_EQ(zoomShown(), "60 %");
    emit box.textActivated("Page width");
    EXPECT_EQ(view().zoom(), zoomPageWidth);
    EXPECT_EQ(view().horizontalScrollBar()->maximum(), 0);
}

TEST_F(Preview, AWholePageFollowsTheWindow) {
    show(2);
    const int before = view().percent();
    window.resize(1000, 1200);
    QApplication::processEvents();
    EXPECT_GT(view().percent(), before);
    press(Qt::Key_PageDown);
    EXPECT_EQ(dotOfPage(5, 5), Qt::black); // the second page stands alone in the view
}

TEST_F(Preview, ControlAndTheWheelZoom) {
    show(1);
    view().setZoom(100);
    QWheelEvent up(QPointF(50, 50), view().mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
                   Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view().viewport(), &up);
    EXPECT_EQ(view().percent(), 125);
}

TEST_F(Preview, PagesArePaintedInTheirSize) {
    show(1);
    view().setZoom(50);
    QApplication::processEvents();
    EXPECT_EQ(dotOfPage(2, 2), Qt::black);
    EXPECT_EQ(dotOfPage(45, 45), Qt::black); // an inch at 50 % is 48 pixels
    EXPECT_EQ(dotOfPage(51, 51), Qt::white);
}

TEST_F(Preview, ALargeZoomPaintsOnlyWhatIsSeen) {
    show(1);
    view().setZoom(400);
    view().resize(8000, 8000);
    QApplication::processEvents();
    const QImage picture = view().viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 4 * 1056 / 2), Qt::white);
}

TEST_F(Preview, NewPagesLeaveThePageShown) {
    show(5);
    view().setZoom(100);
    view().setPage(4);
    view().verticalScrollBar()->setValue(view().verticalScrollBar()->value() + 100);
    const int place = view().verticalScrollBar()->value();
    document.pages.clear(); // as a new run begins
    QApplication::processEvents();
    show(6);
    EXPECT_EQ(view().page(), 4);
    EXPECT_EQ(view().verticalScrollBar()->value(), place);
    show(2);
    EXPECT_EQ(view().page(), 2);
}

TEST_F(Preview, ThousandsOfPagesOpenAtOnce) {
    document = pagesOf(20'000);
    QElapsedTimer clock;
    clock.start();
    window.setPages(&document);
    QApplication::processEvents();
    view().setPage(19'999);
    (void)view().grab();
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(view().page(), 19'999);
    EXPECT_EQ(dotOfPage(2, 2), Qt::black);
}

TEST_F(Preview, TheTableOfContentsLeadsToItsPages) {
    document = pagesOf(4);
    document.contents = {{"Inputs", 1}, {"Outputs", 1}, {"Timers \xB5s", 3}};
    window.setPages(&document);
    auto& list = named<QListWidget>("TOC");
    EXPECT_FALSE(list.isHidden());
    EXPECT_EQ(list.item(2)->text(), "Timers µs");
    EXPECT_EQ(list.currentRow(), 0);
    list.setCurrentRow(2);
    EXPECT_EQ(view().page(), 3);
    view().setPage(2);
    EXPECT_EQ(list.currentRow(), 1);
    list.setCurrentRow(0);
    EXPECT_EQ(view().page(), 1);
    list.setCurrentRow(1);
    EXPECT_EQ(list.currentRow(), 1); // on the same page: the entry stays the chosen one
    named<QAction>("Contents").trigger();
    EXPECT_TRUE(list.isHidden());
    window.setPages(&document);
    EXPECT_TRUE(list.isHidden());
}

TEST_F(Preview, OneEntryNeedsNoList) {
    document = pagesOf(1);
    document.contents = {{"Inputs", 1}};
    window.setPages(&document);
    EXPECT_TRUE(named<QListWidget>("TOC").isHidden());
}

TEST_F(Preview, EscapeAsksItsOwnerBeforeItCloses) {
    bool may = false;
    window.events.closing = [&] { return may; };
    press(Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    may = true;
    press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Preview, ControlPPrints) {
    show(1);
    int printed = 0;
    window.events.print = [&] { ++printed; };
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(printed, 1);
}

TEST_F(Preview, ItTellsWhereItStandsInTwips) {
    Twips_Rect told;
    window.events.placed = [&](const Twips_Rect& place) { told = place; };
    window.setPlace({1500, 3000, 9000, 12000});
    QApplication::processEvents();
    EXPECT_EQ(told, (Twips_Rect{1500, 3000, 9000, 12000}));
    EXPECT_EQ(window.place(), told);
}

} // namespace
} // namespace zorvane::ui
