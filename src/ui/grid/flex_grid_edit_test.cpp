// SPDX-License-Identifier: MIT
#include "ui/testing/grid_fixture.h"

#include <QClipboard>
#include <QInputMethodEvent>

#include <utility>

namespace zorvane::ui {
namespace {

using Edit_Test = samples::Grid_Fixture;

TEST_F(Edit_Test, TellsTheOwnerOfEachMoveAndNothingElse) {
    show();
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    EXPECT_EQ(told, (Told{"RowColChange 2,0", "BeforeEdit 2,0", "RowColChange 2,1", "BeforeEdit 2,1"}));
    EXPECT_FALSE(view->isEditing());
}

TEST_F(Edit_Test, TellsTheOwnerOfAMoveByTheMouse) {
    show();
    click(4, 2);
    EXPECT_EQ(told, (Told{"RowColChange 4,2", "BeforeEdit 4,2"}));
    told.clear();
    click(4, 2);
    EXPECT_EQ(told, Told{});
}

TEST_F(Edit_Test, TellsBeforeStartAndAfterInThisOrder) {
    show();
    key(Qt::Key_F2);
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0"}));
    ASSERT_NE(lineEditor(), nullptr);
    type("x");
    key(Qt::Key_Return);
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0", "AfterEdit 1,0 1,0x", "RowColChange 2,0",
                          "BeforeEdit 2,0"}));
}

TEST_F(Edit_Test, EscapeRestoresAndTellsNothing) {
    show();
    key(Qt::Key_F2);
    told.clear();
    type("999");
    key(Qt::Key_Escape);
    EXPECT_EQ(told, Told{});
    EXPECT_EQ(grid->TextMatrix(1, 0), "1,0");
    EXPECT_FALSE(view->isEditing());
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(Edit_Test, OpensOnTypingInPlaceOfTheOldText) {
    show();
    type("42");
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->text(), "42");
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(1, 0), "42");
}

TEST_F(Edit_Test, OpensOnF2WithTheCursorAtTheEnd) {
    show();
    key(Qt::Key_F2);
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->text(), "1,0");
    EXPECT_EQ(lineEditor()->cursorPosition(), 3);
    EXPECT_FALSE(lineEditor()->hasSelectedText());
}

TEST_F(Edit_Test, OpensOnEnterWithTheTextSelected) {
    show();
    key(Qt::Key_Return);
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->selectedText(), "1,0");
}

TEST_F(Edit_Test, OpensOnDeleteWithNoText) {
    show();
    key(Qt::Key_Delete);
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->text(), "");
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(1, 0), "");
}

TEST_F(Edit_Test, OpensOnADoubleClick) {
    show();
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre(3, 1));
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->selectedText(), "3,1");
}

TEST_F(Edit_Test, OpensNoEditorInAReadOnlyDocument) {
    beforeEdit = [](std::int32_t, std::int32_t, bool& cancel) { cancel = true; };
    show();
    key(Qt::Key_F2);
    type("5");
    key(Qt::Key_Delete);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre(1, 0));
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "BeforeEdit 1,0", "BeforeEdit 1,0", "BeforeEdit 1,0"}));
}

TEST_F(Edit_Test, OpensNoEditorInAColumnThatIsntModifiable) {
    refuseStart = true;
    show();
    type("5");
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0"}));
    EXPECT_EQ(grid->TextMatrix(1, 0), "1,0");
}

TEST_F(Edit_Test, EnterMovesDownAndTabMovesRight) {
    show();
    type("1");
    key(Qt::Key_Return);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "2,0");
    type("2");
    key(Qt::Key_Tab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "2,1");
    type("3");
    key(Qt::Key_Backtab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "2,0");
    type("4");
    key(Qt::Key_Up);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,0");
    EXPECT_EQ(grid->TextMatrix(2, 0), "4");
    EXPECT_EQ(grid->TextMatrix(2, 1), "3");
}

TEST_F(Edit_Test, TabGoesOnInTheNextRowAndEnterStaysInTheLast) {
    stand(1, 2);
    show();
    type("1");
    key(Qt::Key_Tab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "2,0");
    stand(20, 1);
    QApplication::processEvents();
    type("1");
    key(Qt::Key_Return);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "20,1");
    EXPECT_EQ(grid->TextMatrix(20, 1), "1");
}

TEST_F(Edit_Test, TabLeavesTheGridAtItsEnd) {
    QLineEdit next(&window);
    next.setGeometry(0, 0, 50, 10);
    QWidget::setTabOrder(view, &next);
    stand(20, 1);
    show();
    key(Qt::Key_Tab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "20,2");
    key(Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
}

TEST_F(Edit_Test, KeysPassOverColumnsWithoutAWidth) {
    grid->setColWidth(1, 0);
    show();
    key(Qt::Key_Right);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,2");
    key(Qt::Key_Left);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,0");
    key(Qt::Key_Tab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,2");
    key(Qt::Key_Backtab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,0");
    type("7");
    key(Qt::Key_Tab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,2");
    type("8");
    key(Qt::Key_Backtab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,0");
}

TEST_F(Edit_Test, KeysPassOverColumnsWithoutAWidthAtTheEdges) {
    QLineEdit next(&window);
    next.setGeometry(0, 0, 50, 10);
    QWidget::setTabOrder(view, &next);
    grid->setColWidth(0, 0);
    grid->setColWidth(2, -5);
    stand(1, 1);
    show();
    key(Qt::Key_Right);
    key(Qt::Key_Left);
    key(Qt::Key_Home);
    key(Qt::Key_End);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,1");
    key(Qt::Key_Tab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "2,1");
    type("7");
    key(Qt::Key_Tab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "3,1");
    key(Qt::Key_Backtab);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "2,1");
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,1");
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "20,1");
    key(Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
}

TEST_F(Edit_Test, KeysStayWhereTheyAreWithoutAnyColumnToSee) {
    for (std::int32_t c = 0; c < 3; ++c)
        grid->setColWidth(c, 0);
    show();
    key(Qt::Key_Right);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "1,0");
}

TEST_F(Edit_Test, AClickElsewhereTakesTheText) {
    show();
    type("77");
    told.clear();
    view->setFocus(Qt::MouseFocusReason);
    click(5, 1);
    EXPECT_EQ(told, (Told{"AfterEdit 1,0 77", "RowColChange 5,1", "BeforeEdit 5,1"}));
}

TEST_F(Edit_Test, AnotherWindowDoesntEndAnEdit) {
    show();
    type("77");
    told.clear();
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(lineEditor(), &away);
    EXPECT_TRUE(view->isEditing());
    EXPECT_EQ(lineEditor()->text(), "77");
    EXPECT_EQ(told, Told{});
}

TEST_F(Edit_Test, TheEditedCellIsCurrentWhileTheOwnerIsTold) {
    std::string current;
    afterEdit = [&](std::int32_t, std::int32_t) { current = place(grid->Row(), grid->Col()); };
    show();
    type("7");
    stand(9, 2); // a refresh meanwhile
    key(Qt::Key_Return);
    EXPECT_EQ(current, "1,0");
}

TEST_F(Edit_Test, StaysWhereTheCommitPutTheCurrentCell) {
    afterEdit = [&](std::int32_t, std::int32_t) { stand(6, 1); };
    show();
    type("7");
    key(Qt::Key_Return);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "6,1");
}

TEST_F(Edit_Test, KeysGoOnFromTheLastCellWhenNoColumnIsCurrent) {
    afterEdit = [&](std::int32_t, std::int32_t) { grid->setCol(-1); };
    stand(3, 1);
    show();
    type("7");
    key(Qt::Key_Return);
    EXPECT_EQ(grid->Col(), -1);
    key(Qt::Key_Down);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "4,1");
}

TEST_F(Edit_Test, AnEditInProgressSurvivesARefresh) {
    show();
    type("12");
    lineEditor()->setCursorPosition(1);
    const Text_Cell_Editor* editor = lineEditor();
    for (int tick = 0; tick < 3; ++tick) {
        grid->setVisible(false);
        for (std::int32_t r = 1; r <= 20; ++r)
            for (std::int32_t c = 0; c < 3; ++c) {
                stand(r, c);
                grid->setCellBackColor(0xFFFFFF);
                grid->setTextMatrix(r, c, "fresh");
            }
        grid->setVisible(true);
        QApplication::processEvents();
    }
    ASSERT_EQ(lineEditor(), editor);
    EXPECT_EQ(editor->text(), "12");
    EXPECT_TRUE(editor->hasFocus());
    EXPECT_EQ(editor->cursorPosition(), 1);
    EXPECT_EQ(grid->TextMatrix(1, 0), "fresh");
    key(Qt::Key_Escape);
    EXPECT_EQ(grid->TextMatrix(1, 0), "fresh");
}

TEST_F(Edit_Test, AnotherTableEndsTheEditInSilence) {
    show();
    type("12");
    told.clear();
    grid->setRows(4);
    QApplication::processEvents();
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(told, Told{});
    EXPECT_EQ(grid->TextMatrix(1, 0), "1,0");
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(Edit_Test, TakesNoMoreCharactersThanTheLimit) {
    grid->setEditMaxLength(4);
    show();
    type("123456");
    EXPECT_EQ(lineEditor()->text(), "1234");
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(1, 0), "1234");
}

TEST_F(Edit_Test, ALongerTextThanTheLimitStaysWholeUntilItIsEdited) {
    grid->setEditMaxLength(4);
    grid->setTextMatrix(1, 0, "123456");
    show();
    key(Qt::Key_F2);
    EXPECT_EQ(lineEditor()->text(), "123456");
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(1, 0), "123456");
}

TEST_F(Edit_Test, ALongerTextThanTheLimitCanOnlyGetShorter) {
    grid->setEditMaxLength(4);
    grid->setTextMatrix(1, 0, "123456");
    show();
    key(Qt::Key_F2);
    type("7");
    EXPECT_EQ(lineEditor()->text(), "123456");
    key(Qt::Key_Home);
    key(Qt::Key_Delete);
    EXPECT_EQ(lineEditor()->text(), "23456");
    EXPECT_EQ(lineEditor()->cursorPosition(), 0);
    type("7");
    EXPECT_EQ(lineEditor()->text(), "23456");
    lineEditor()->selectAll();
    lineEditor()->insert("abcdefgh");
    EXPECT_EQ(lineEditor()->text(), "abcd");
    lineEditor()->selectAll();
    type("12345");
    EXPECT_EQ(lineEditor()->text(), "1234");
}

TEST_F(Edit_Test, TakesAnyLengthWithoutALimit) {
    grid->setEditMaxLength(0);
    show();
    key(Qt::Key_Delete);
    lineEditor()->insert(QString(3000, u'x'));
    EXPECT_EQ(lineEditor()->text().size(), 3000);
}

TEST_F(Edit_Test, TakesNoCharacterThatTheCodePageLacks) {
    show();
    key(Qt::Key_Delete);
    lineEditor()->insert(QStringLiteral("5 \u20AC"));
    EXPECT_EQ(lineEditor()->text(), QStringLiteral("5 \u20AC"));
    lineEditor()->insert(QStringLiteral("\u0416"));
    EXPECT_EQ(lineEditor()->text(), QStringLiteral("5 \u20AC"));
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(1, 0), "5 \x80");
}

TEST_F(Edit_Test, OpensNoEditorForACharacterThatTheCodePageLacks) {
    show();
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("\u0416"));
    QApplication::sendEvent(view, &press);
    EXPECT_FALSE(view->isEditing());
}

TEST_F(Edit_Test, OpensOnACharacterPutTogetherFromSeveralKeys) {
    show();
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u00E9"));
    QApplication::sendEvent(view, &composed);
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->text(), QStringLiteral("\u00E9"));
}

TEST_F(Edit_Test, AMoveOfTheUserDuringTheCommitStands) {
    afterEdit = [&](std::int32_t, std::int32_t) { // a live write serves events
        grid->setTabStop(false);
        QApplication::processEvents();
        click(7, 2);
        grid->setTabStop(true);
    };
    show();
    type("7");
    key(Qt::Key_Return);
    EXPECT_EQ(place(grid->Row(), grid->Col()), "7,2");
    EXPECT_EQ(grid->TextMatrix(1, 0), "7");
}

TEST_F(Edit_Test, AnEditMayStartDuringTheCommitOfAnother) {
    bool first = true;
    afterEdit = [&](std::int32_t, std::int32_t) {
        if (!std::exchange(first, false)) return;
        click(5, 1);
        type("55");
        stand(1, 0); // the commit goes back to its own cell, and asks for the focus
        grid->SetFocus();
    };
    show();
    type("7");
    key(Qt::Key_Return);
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->text(), "55");
    EXPECT_TRUE(lineEditor()->hasFocus());
    key(Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(5, 1), "55");
}

TEST_F(Edit_Test, TellsKeysAsTheyComeUp) {
    std::vector<std::string> keys;
    view->events.KeyUp = [&](std::int16_t code, std::int16_t shift) {
        if (code == 36) keys.push_back(std::to_string(code) + "/" + std::to_string(shift));
    };
    show();
    key(Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    key(Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(keys, (std::vector<std::string>{"36/7", "36/3"}));
}

TEST_F(Edit_Test, CopiesTheSelectedCells) {
    show();
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1,0");
    click(2, 0);
    click(3, 1, Qt::ShiftModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2,0\t2,1\n3,0\t3,1");
}

TEST_F(Edit_Test, PastesIntoTheCurrentCellThroughTheSameCallbacks) {
    QGuiApplication::clipboard()->setText("55\r\n");
    show();
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0", "AfterEdit 1,0 55"}));
    EXPECT_FALSE(view->isEditing());
}

TEST_F(Edit_Test, PastesNothingWhereNoEditIsAllowed) {
    QGuiApplication::clipboard()->setText("55");
    refuseStart = true;
    show();
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(told, (Told{"BeforeEdit 1,0", "StartEdit 1,0"}));
    EXPECT_EQ(grid->TextMatrix(1, 0), "1,0");
}

TEST_F(Edit_Test, PastesWithinTheLimitAndTheCodePage) {
    grid->setEditMaxLength(3);
    show();
    QGuiApplication::clipboard()->setText("12345");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid->TextMatrix(1, 0), "123");
    QGuiApplication::clipboard()->setText(QStringLiteral("\u0416"));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid->TextMatrix(1, 0), "123");
}

} // namespace
} // namespace zorvane::ui
