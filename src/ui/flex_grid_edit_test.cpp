#include "ui/testing/grid_fixture.h"

#include <QClipboard>
#include <QMouseEvent>

namespace zorvane {
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
    QTest::mouseMove(view->viewport(), QPoint(20, 10));
    EXPECT_FLOAT_EQ(lastX, 300);
    EXPECT_FLOAT_EQ(lastY, 285 + 150);
    QTest::mouseMove(view->horizontalHeader()->viewport(), QPoint(30, 4));
    EXPECT_FLOAT_EQ(lastX, 450);
    EXPECT_FLOAT_EQ(lastY, 60);
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
} // namespace zorvane
