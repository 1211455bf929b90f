// SPDX-License-Identifier: MIT
// What comes from the clipboard, and what a cell doesn't take of it.

#include "ui/grid/pasted_text.h"
#include "ui/testing/grid_fixture.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>

namespace zorvane::ui {
namespace {

TEST(Pasted_Text_Test, IsALineWithABlankForEachSeparator) {
    EXPECT_EQ(pastedText("a\tb").line, "a b");
    EXPECT_EQ(pastedText("a\nb\rc").line, "a b c");
    EXPECT_EQ(pastedText("a\r\nb").line, "a b");
    EXPECT_EQ(pastedText("a\n\n").line, "a ");
}

TEST(Pasted_Text_Test, OneLineEndAtTheEndDoesntCount) {
    EXPECT_EQ(pastedText("55\r\n").line, "55");
    EXPECT_FALSE(pastedText("55\r\n").severalCells);
    EXPECT_FALSE(pastedText("5 5\n").severalCells);
    EXPECT_TRUE(pastedText("5\t5").severalCells);
    EXPECT_TRUE(pastedText("5\n5\n").severalCells);
    EXPECT_TRUE(pastedText("5\r5").severalCells);
}

TEST(Pasted_Text_Test, NamesTheFirstCharacterThatTheCodePageLacks) {
    EXPECT_EQ(missingCharacter(QStringLiteral("Stra\u00DFe \u20AC")), "");
    EXPECT_EQ(missingCharacter(QStringLiteral("10 k\u03A9 \u0416")), "U+03A9");
    EXPECT_EQ(missingCharacter(QString::fromUcs4(U"\x1F600")), "U+1F600");
}

class Paste_Test : public samples::Grid_Fixture {
  protected:
    Paste_Test() {
        view->events.Refused = [this](std::int32_t row, std::int32_t col, const Refused_Input& what) {
            told.push_back("Refused " + place(row, col) + " " + what.character);
        };
        view->events.TakesBlock = [this](std::int32_t, std::int32_t) { return takesBlock; };
    }
    void pasteInEditor(const QString& clipboard) {
        QGuiApplication::clipboard()->setText(clipboard);
        show();
        key(Qt::Key_F2);
        told.clear();
        key(Qt::Key_V, Qt::ControlModifier);
    }
    void pasteInCell(const QString& clipboard) {
        QGuiApplication::clipboard()->setText(clipboard);
        show();
        key(Qt::Key_V, Qt::ControlModifier);
    }
    bool takesBlock = true;
};

TEST_F(Paste_Test, AnOpenEditorTakesNeitherLineEndNorTab) {
    pasteInEditor("x\r\ny\tz\n");
    EXPECT_EQ(lineEditor()->text(), "1,0x y z");
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(1, 0), "1,0x y z");
}

TEST_F(Paste_Test, AClosedCellTakesTheSame) {
    pasteInCell("x\r\ny\tz\n");
    EXPECT_EQ(grid->TextMatrix(1, 0), "x y z");
}

TEST_F(Paste_Test, TheEditorsMenuPastesTheSame) {
    QGuiApplication::clipboard()->setText("x\ny");
    show();
    key(Qt::Key_F2);
    QContextMenuEvent wish(QContextMenuEvent::Keyboard, QPoint(2, 2),
                           lineEditor()->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(lineEditor(), &wish);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions())
        if (action->text().startsWith("&Paste")) action->trigger();
    menu->close();
    EXPECT_EQ(lineEditor()->text(), "1,0x y");
}

TEST_F(Paste_Test, WhatComesAnotherWayHasNoLineEndEither) {
    show();
    key(Qt::Key_F2);
    QInputMethodEvent composed;
    composed.setCommitString("x\ny");
    QApplication::sendEvent(lineEditor(), &composed);
    EXPECT_EQ(lineEditor()->text(), "1,0x y");
    EXPECT_EQ(lineEditor()->cursorPosition(), 6);
}

TEST_F(Paste_Test, ADroppedTextGoesByTheSameRules) {
    show();
    key(Qt::Key_F2);
    QMimeData dragged;
    dragged.setText("x\ny\n");
    QDropEvent drop(QPointF(1, 3), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject*>(lineEditor())->event(&drop);
    EXPECT_EQ(lineEditor()->text(), "x y1,0");
    takesBlock = false;
    told.clear();
    static_cast<QObject*>(lineEditor())->event(&drop);
    EXPECT_EQ(lineEditor()->text(), "x y1,0");
    EXPECT_EQ(told, Told{"Refused 1,0 "});
}

TEST_F(Paste_Test, ABlockIsRefusedWhereTheCellTakesOneValue) {
    takesBlock = false;
    pasteInCell("12\t13\n14\t15\n");
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0", "Refused 1,0 "}));
    EXPECT_EQ(grid->TextMatrix(1, 0), "1,0");
    pasteInEditor("12\n13");
    EXPECT_EQ(told, Told{"Refused 1,0 "});
    EXPECT_EQ(lineEditor()->text(), "1,0");
}

TEST_F(Paste_Test, OneValueWithItsLineEndIsNoBlock) {
    takesBlock = false;
    pasteInCell("12\r\n");
    EXPECT_EQ(grid->TextMatrix(1, 0), "12");
}

TEST_F(Paste_Test, ABlockIsNoEntryOfAList) {
    beforeEdit = [this](std::int32_t, std::int32_t, bool&) { grid->setComboList("#0;Off|#1;On"); };
    pasteInCell("On\tOff");
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0", "Refused 1,0 "}));
}

TEST_F(Paste_Test, ACharacterThatNoFileHoldsIsToldOfOnEveryWay) {
    pasteInCell(QStringLiteral("10 k\u03A9"));
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0", "Refused 1,0 U+03A9"}));
    EXPECT_EQ(grid->TextMatrix(1, 0), "1,0");
    pasteInEditor(QStringLiteral("10 k\u03A9"));
    EXPECT_EQ(told, Told{"Refused 1,0 U+03A9"});
    EXPECT_EQ(lineEditor()->text(), "1,0");
    key(Qt::Key_Escape);
    told.clear();
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u0416"));
    QApplication::sendEvent(view, &composed);
    EXPECT_EQ(told, Told{"Refused 1,0 U+0416"});
    EXPECT_FALSE(view->isEditing());
}

} // namespace
} // namespace zorvane::ui
