// SPDX-License-Identifier: MIT
// The menu "Edit", its dialogs and the marks of the lower grid, in the whole program.

#include "app/window/edit/edit_windows.h"
#include "app/window/edit/find_window.h"
#include "app/window/edit/fit_dialog.h"
#include "app/window/testing/program_fixture.h"
#include "ui/compare/compare_window.h"
#include "ui/testing/control_walk.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QTableWidget>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Edit_Menu : public doubles::Program_Fixture {
  protected:
    Edit_Menu() {
        putModels();
        std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT207D", path("site7.KVRT207D"));
        startWith("site7.KVRT207D");
        selectField(3);
        program->edit().askFit = [this](const Fit_Question& question) {
            questions.push_back(question.summary);
            return answer;
        };
    }
    [[nodiscard]] QAction& entry(const char* name) const { return program->window().menu().action(name); }
    [[nodiscard]] std::string caption(const char* name) const { return entry(name).text().toStdString(); }
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        focus(lower());
        choose("MNU_PasteBlock");
    }
    void standOn(std::int32_t row, std::int32_t col) {
        lower().setRow(row);
        lower().setCol(col);
        lower().view().flush();
        focus(lower());
    }
    [[nodiscard]] int corners(std::int32_t row, std::int32_t col) const {
        const QAbstractItemModel& model = *lower().view().model();
        return model.index(row - 1, col).data(ui::cornerRole).toInt();
    }

    std::vector<std::string> questions;
    bool answer = false;
};

TEST_F(Edit_Menu, NamesTheStepAndSaysWhyThereIsNone) {
    EXPECT_EQ(caption("MNU_Undo"), "&Undo");
    EXPECT_FALSE(entry("MNU_Undo").isEnabled());
    EXPECT_THAT(entry("MNU_Undo").toolTip().toStdString(), HasSubstr("There is nothing to undo."));
    const std::string before = lower().TextMatrix(1, 1);
    type(1, 1, "1100");
    EXPECT_THAT(caption("MNU_Undo"), StartsWith("&Undo change of Regulation, "));
    choose("MNU_Undo");
    EXPECT_EQ(lower().TextMatrix(1, 1), before);
    EXPECT_EQ(title(), "site7.kvrt207d - Zorvane");
    EXPECT_FALSE(enabled("MNU_Save"));
    choose("MNU_Redo");
    EXPECT_EQ(lower().TextMatrix(1, 1), "1100");
    EXPECT_EQ(title(), "* site7.kvrt207d - Zorvane");
}

TEST_F(Edit_Menu, MarksChangedCellsUntilTheyAreSaved) {
    EXPECT_EQ(corners(1, 1), 0);
    type(1, 1, "1100");
    EXPECT_EQ(corners(1, 1), int{ui::Corner_Changed});
    EXPECT_EQ(corners(2, 1), 0);
    const QModelIndex index = lower().view().model()->index(0, 1);
    EXPECT_EQ(index.data(Qt::AccessibleDescriptionRole).toString(), "Modifiable, changed");
    EXPECT_TRUE(entry("MNU_MarkChanged").isChecked());
    choose("MNU_MarkChanged");
    EXPECT_FALSE(entry("MNU_MarkChanged").isChecked());
    EXPECT_EQ(corners(1, 1), 0);
    EXPECT_EQ(index.data(Qt::AccessibleDescriptionRole).toString(), "Modifiable");
    choose("MNU_MarkChanged");
    choose("MNU_Save");
    EXPECT_EQ(corners(1, 1), 0);
}

TEST_F(Edit_Menu, MarksWhatDiffersFromTheSideThatWasCompared) {
    program->comparing().run = [](ui::Compare_Window& window) { window.events.sideChosen(1, 2); };
    choose("MNU_Compare");
    const QModelIndex index = lower().view().model()->index(0, 1);
    EXPECT_FALSE(entry("MNU_MarkDifferences").isChecked());
    EXPECT_EQ(corners(1, 1), 0);
    choose("MNU_MarkDifferences");
    EXPECT_TRUE(entry("MNU_MarkDifferences").isChecked());
    EXPECT_EQ(corners(1, 1), int{ui::Corner_Differs});
    EXPECT_EQ(index.data(Qt::AccessibleDescriptionRole).toString().toStdString(),
              "Modifiable, differs from factory values: 1150");
    EXPECT_EQ(index.data(Qt::ToolTipRole).toString().toStdString(), "Differs from factory values: 1150");
    type(1, 1, "1160");
    EXPECT_EQ(corners(1, 1), ui::Corner_Changed | ui::Corner_Differs);
    EXPECT_EQ(index.data(Qt::AccessibleDescriptionRole).toString().toStdString(),
              "Modifiable, changed, differs from factory values: 1150");
    type(1, 1, "1150");
    EXPECT_EQ(corners(1, 1), int{ui::Corner_Changed});
    EXPECT_EQ(index.data(Qt::ToolTipRole).toString().toStdString(), "");
}

TEST_F(Edit_Menu, PastesABlockOrAsks) {
    standOn(1, 1);
    paste("1100\tfirst\r\n");
    EXPECT_TRUE(questions.empty());
    EXPECT_EQ(lower().TextMatrix(1, 1), "1100");
    EXPECT_EQ(lower().TextMatrix(1, 2), "first");
    paste("1150\tsecond\r\n99999\tthird\r\n");
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_THAT(questions.front(), StartsWith("3 of 4 fit; row 2 "));
    EXPECT_EQ(lower().TextMatrix(1, 2), "first") << "nothing was the answer";
    answer = true;
    paste("1150\tsecond\r\n99999\tthird\r\n");
    EXPECT_EQ(lower().TextMatrix(1, 2), "second");
    EXPECT_EQ(lower().TextMatrix(2, 2), "third");
}

TEST_F(Edit_Menu, FillsASelectionWithOneText) {
    standOn(1, 2);
    QTest::keyClick(&lower().view(), Qt::Key_Down, Qt::ShiftModifier);
    QGuiApplication::clipboard()->setText("bay 4");
    QTest::keyClick(&lower().view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(lower().TextMatrix(1, 2), "bay 4");
    EXPECT_EQ(lower().TextMatrix(2, 2), "bay 4");
    QTest::keyClick(&lower().view(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData& copied = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied.text(), "bay 4\nbay 4");
    EXPECT_THAT(copied.html().toStdString(), HasSubstr("<table>"));
}

TEST_F(Edit_Menu, ACharacterThatNoFileHoldsIsTold) {
    standOn(1, 2);
    paste(QStringLiteral("Ω\t1\r\n"));
    ASSERT_NE(program->mainForm().messageBar().find("refused input"), nullptr);
    EXPECT_THAT(program->mainForm().messageBar().find("refused input")->text, HasSubstr("U+03A9"));
}

TEST_F(Edit_Menu, ARefusedBlockIsOfferedInTheMessageBar) {
    standOn(1, 1);
    QGuiApplication::clipboard()->setText("1100\tfirst\n");
    QTest::keyClick(&lower().view(), Qt::Key_V, Qt::ControlModifier);
    const Bar_Line* line = program->mainForm().messageBar().find("refused input");
    ASSERT_NE(line, nullptr);
    ASSERT_EQ(line->buttons.size(), 1U);
    line->buttons.front().press();
    EXPECT_EQ(lower().TextMatrix(1, 2), "first");
}

TEST_F(Edit_Menu, FindsOnAllPages) {
    choose("MNU_FindNext"); // nothing was asked for yet
    Find_Window* find = program->edit().findWindow();
    ASSERT_NE(find, nullptr);
    EXPECT_TRUE(find->isVisible());
    EXPECT_THAT(doubles::controlFaults(*find), ElementsAre());
    EXPECT_THAT(doubles::keyClashes(*find), ElementsAre());
    QTest::keyClicks(find->findChild<QLineEdit*>("EDT_Find"), "regulation");
    auto& table = *find->findChild<QTableWidget*>("LST_Found");
    EXPECT_GT(table.rowCount(), 3);
    QTest::keyClick(find->findChild<QLineEdit*>("EDT_Find"), Qt::Key_Return);
    EXPECT_EQ(upper().Row(), 3);
    EXPECT_THAT(find->findChild<QLabel*>("LBL_Position")->text().toStdString(), StartsWith("1 of "));
    ASSERT_EQ(table.selectedItems().size(), 3);
    EXPECT_EQ(table.selectedItems().front()->row(), 0) << "the list doesn't say which of them it is";
    find->close();
    selectField(1);
    choose("MNU_FindNext");
    EXPECT_EQ(upper().Row(), 3);
    type(1, 1, "1100");
    choose("MNU_Find");
    find->findChild<QLineEdit*>("EDT_Find")->clear();
    find->findChild<QCheckBox*>("CHK_Changed")->setChecked(true);
    EXPECT_EQ(table.rowCount(), 1);
    EXPECT_EQ(table.item(0, 1)->text(), "1100");
}

TEST_F(Edit_Menu, WhatWasFoundIsNotLeftUnderTheWindow) {
    choose("MNU_Find");
    Find_Window& find = *program->edit().findWindow();
    QTest::keyClicks(find.findChild<QLineEdit*>("EDT_Find"), "set point");
    find.resize(300, 200);
    program->window().move(10, 10);
    find.move(10, 10); // over the grid's first rows
    QApplication::processEvents();
    QTest::keyClick(find.findChild<QLineEdit*>("EDT_Find"), Qt::Key_Return);
    EXPECT_EQ(upper().Row(), 3);
    const QRect cell = find.shownCell();
    EXPECT_FALSE(cell.isEmpty());
    EXPECT_FALSE(find.frameGeometry().intersects(cell));
    const QPoint place = find.pos();
    QTest::keyClick(find.findChild<QLineEdit*>("EDT_Find"), Qt::Key_Return);
    EXPECT_EQ(find.pos(), place) << "it moves where it needn't";
}

TEST_F(Edit_Menu, ExportsAndImportsValues) {
    const QString file = QString::fromStdString(path("values.csv"));
    program->edit().runFileDialog = [&](QFileDialog& dialog) {
        dialog.selectFile(file);
        return true;
    };
    choose("MNU_ExportValues");
    std::string text = this->text("values.csv");
    EXPECT_THAT(text, HasSubstr("field,row,column,page"));
    const std::size_t at = text.find("Regulation");
    ASSERT_NE(at, std::string::npos);
    type(1, 1, "1100");
    answer = true;
    choose("MNU_ImportValues");
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_THAT(questions.front(), HasSubstr("1 of them changes"));
    EXPECT_EQ(caption("MNU_Undo"), "&Undo import of 1 value");
}

TEST_F(Edit_Menu, TheEditorKeepsItsKeys) {
    type(1, 1, "1100");
    standOn(1, 1);
    QTest::keyClick(&lower().view(), Qt::Key_F2);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    for (const Qt::Key key : {Qt::Key_Z, Qt::Key_Y, Qt::Key_K, Qt::Key_F}) {
        QKeyEvent event(QEvent::ShortcutOverride, key, Qt::ControlModifier);
        event.ignore();
        QApplication::sendEvent(editor, &event);
        EXPECT_TRUE(event.isAccepted()) << key;
    }
    QTest::keyClick(editor, Qt::Key_Escape);
}

TEST(Fit_Question_Dialog, ListsWhatDoesntFitAndMeansNothingByEnter) {
    Fit_Dialog dialog({"Paste", "1 of 2 fit; row 2 above its limit 1400", {"Row 2: too much"}, 1}, nullptr);
    dialog.show();
    EXPECT_THAT(doubles::controlFaults(dialog), ElementsAre());
    EXPECT_THAT(doubles::keyClashes(dialog), ElementsAre());
    EXPECT_EQ(dialog.findChild<QLabel*>("LBL_Summary")->text(), "1 of 2 fit; row 2 above its limit 1400.");
    EXPECT_EQ(dialog.findChild<QListWidget*>("LST_LeftOut")->item(0)->text(), "Row 2: too much");
    EXPECT_TRUE(dialog.findChild<QPushButton*>("BOT_Nothing")->isDefault());
    dialog.findChild<QPushButton*>("BOT_AllThatFit")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(Fit_Question_Dialog, OffersNothingElseWhereNothingFits) {
    Fit_Dialog dialog({"Paste", "0 of 1 fit; row 2 above its limit 1400", {"Row 2: too much"}, 0}, nullptr);
    EXPECT_FALSE(dialog.findChild<QPushButton*>("BOT_AllThatFit")->isEnabled());
    EXPECT_TRUE(dialog.findChild<QPushButton*>("BOT_Nothing")->isDefault());
}

} // namespace
} // namespace zorvane::app
