// SPDX-License-Identifier: MIT
#include "ui/testing/grid_fixture.h"

#include <QClipboard>

namespace zorvane::ui {
namespace {

/// Every cell has the list Off, On, Auto.
class List_Edit_Test : public samples::Grid_Fixture {
  protected:
    List_Edit_Test() {
        beforeEdit = [this](std::int32_t, std::int32_t, bool&) {
            grid->setComboList("|#0;Off|#1;On|#2;Auto");
        };
        for (std::int32_t r = 1; r <= 20; ++r)
            grid->setTextMatrix(r, 1, "On");
        stand(2, 1);
    }
    void open() {
        key(Qt::Key_F2);
        QApplication::processEvents();
    }
};

TEST_F(List_Edit_Test, OpensItsListAtOnceOnTheCellsEntry) {
    show();
    open();
    ASSERT_NE(listEditor(), nullptr);
    EXPECT_TRUE(listEditor()->view()->isVisible());
    EXPECT_EQ(listEditor()->count(), 3);
    EXPECT_EQ(listEditor()->currentText(), "On");
    EXPECT_FALSE(listEditor()->isEditable());
    EXPECT_EQ(grid->ComboData(), "");
}

TEST_F(List_Edit_Test, GivesTheNumberOfTheEntryChosenByKeys) {
    show();
    open();
    told.clear();
    std::string chosen;
    afterEdit = [&](std::int32_t, std::int32_t) { chosen = grid->ComboData(); };
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_EQ(chosen, "2");
    EXPECT_EQ(told.front(), "AfterEdit 2,1 Auto");
    EXPECT_EQ(place(grid->Row(), grid->Col()), "3,1");
    EXPECT_FALSE(view->isEditing());
}

TEST_F(List_Edit_Test, GoesToTheEntryThatIsTyped) {
    show();
    type("o"); // Off, the next one after On that begins with it
    QApplication::processEvents();
    ASSERT_NE(listEditor(), nullptr);
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(2, 1), "Off");
    EXPECT_EQ(grid->ComboData(), "0");
    stand(4, 1);
    QApplication::processEvents();
    open();
    type("a");
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(4, 1), "Auto");
}

TEST_F(List_Edit_Test, EscapeChoosesNothing) {
    show();
    open();
    told.clear();
    key(Qt::Key_Down);
    key(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(told, Told{});
    EXPECT_EQ(grid->TextMatrix(2, 1), "On");
    EXPECT_EQ(grid->ComboData(), "");
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(List_Edit_Test, TabTakesTheEntryAndMovesRight) {
    show();
    open();
    key(Qt::Key_Up);
    key(Qt::Key_Tab);
    EXPECT_EQ(grid->TextMatrix(2, 1), "Off");
    EXPECT_EQ(place(grid->Row(), grid->Col()), "2,2");
}

TEST_F(List_Edit_Test, TakesTheSameEntryAgain) {
    show();
    open();
    told.clear();
    key(Qt::Key_Return);
    EXPECT_EQ(told.front(), "AfterEdit 2,1 On");
    EXPECT_EQ(grid->ComboData(), "1");
}

TEST_F(List_Edit_Test, TakesAnEntryByTheMouse) {
    show();
    open();
    QAbstractItemView* list = listEditor()->view();
    const QPoint entry = list->visualRect(list->model()->index(0, 0)).center();
    QTest::qWait(QApplication::doubleClickInterval() +
                 50); // a click right after the list opened doesn't count
    QTest::mouseMove(list->viewport(), entry);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, entry);
    EXPECT_EQ(grid->TextMatrix(2, 1), "Off");
}

TEST_F(List_Edit_Test, PastesOnlyAnEntrysText) {
    show();
    QGuiApplication::clipboard()->setText("auto");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid->TextMatrix(2, 1), "Auto");
    EXPECT_EQ(grid->ComboData(), "2");
    told.clear();
    QGuiApplication::clipboard()->setText("7");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(told, (Told{"BeforeEdit 2,1", "StartEdit 2,1"}));
    EXPECT_EQ(grid->TextMatrix(2, 1), "Auto");
}

TEST_F(List_Edit_Test, AnEmptyListGivesAFreeTextEditor) {
    beforeEdit = [this](std::int32_t, std::int32_t, bool&) { grid->setComboList(""); };
    show();
    open();
    EXPECT_NE(lineEditor(), nullptr);
    EXPECT_EQ(listEditor(), nullptr);
    EXPECT_EQ(grid->ComboData(), "");
}

} // namespace
} // namespace zorvane::ui
