// SPDX-License-Identifier: MIT
// The menu of a grid.

#include "ui/testing/control_walk.h"
#include "ui/testing/grid_fixture.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include <gmock/gmock.h>

namespace zorvane::ui {
namespace {

class Grid_Menu : public samples::Grid_Fixture {
  protected:
    /// The menu as the menu key opens it.
    QMenu& open() {
        show();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), view->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(view, &event);
        menu = view->findChild<QMenu*>(QStringLiteral("GRID_Menu"));
        return *menu;
    }
    void choose(const char* entry) {
        open().findChild<QAction*>(QString::fromLatin1(entry))->trigger();
        menu->close();
    }
    QPointer<QMenu> menu;
};

TEST_F(Grid_Menu, ClearCommitsAnEmptyText) {
    grid->setRow(1);
    grid->setCol(0);
    choose("GRID_Clear");
    EXPECT_EQ(grid->TextMatrix(1, 0), "");
    EXPECT_THAT(told, testing::Contains("AfterEdit 1,0 "));
    EXPECT_FALSE(view->isEditing());
}

TEST_F(Grid_Menu, ClearAsksTheOwnerAsAnEditDoes) {
    view->events.BeforeEdit = [](std::int32_t, std::int32_t, bool& cancel) { cancel = true; };
    grid->setRow(1);
    grid->setCol(0);
    const std::string before = grid->TextMatrix(1, 0);
    choose("GRID_Clear");
    EXPECT_EQ(grid->TextMatrix(1, 0), before);
}

TEST_F(Grid_Menu, CopyAndPasteDoAsTheirKeys) {
    grid->setRow(1);
    grid->setCol(0);
    choose("GRID_Copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1,0");
    QGuiApplication::clipboard()->setText(QStringLiteral("7"));
    choose("GRID_Paste");
    EXPECT_EQ(grid->TextMatrix(1, 0), "7");
}

TEST_F(Grid_Menu, PasteIsDisabledWithoutAText) {
    QGuiApplication::clipboard()->clear();
    EXPECT_FALSE(open().findChild<QAction*>(QStringLiteral("GRID_Paste"))->isEnabled());
}

TEST_F(Grid_Menu, AGridOfRowsOnlyCopies) {
    view->setEditable(false);
    QMenu& shown = open();
    EXPECT_EQ(shown.actions().size(), 1);
    EXPECT_EQ(shown.actions().constFirst()->objectName(), "GRID_Copy");
}

TEST_F(Grid_Menu, ShiftAndF10OpenItToo) {
    show();
    grid->setRow(1);
    grid->setCol(0);
    QTest::keyClick(view, Qt::Key_F10, Qt::ShiftModifier);
    menu = view->findChild<QMenu*>(QStringLiteral("GRID_Menu"));
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->isVisible());
    menu->close();
    EXPECT_FALSE(view->isEditing());
}

TEST_F(Grid_Menu, TheOwnerAddsEntries) {
    view->events.ContextMenu = [](QMenu& shown) { shown.addAction(QStringLiteral("Ours")); };
    EXPECT_EQ(open().actions().constLast()->text(), "Ours");
}

TEST_F(Grid_Menu, NoTwoEntriesHaveOneLetter) { EXPECT_THAT(doubles::keyClashes(open()), testing::IsEmpty()); }

} // namespace
} // namespace zorvane::ui
