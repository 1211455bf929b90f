// SPDX-License-Identifier: MIT
// The window of a comparison by itself: keys, filter, ticks, what is enabled when.

#include "ui/base/text.h"
#include "ui/compare/compare_window.h"
#include "ui/testing/control_walk.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::ui {
namespace {

using compare::Comparison;
using compare::Row;
using compare::Row_List;
using compare::Sign;

/// Rows "1", "2" and so on of these signs.
Row_List rowsWith(const std::vector<Sign>& signs) {
    Comparison comparison;
    for (std::size_t i = 0; i < signs.size(); ++i) {
        Row row;
        row.place = {1, static_cast<std::int32_t>(i + 1), 2};
        row.page = "Outputs";
        row.name = std::to_string(i + 1);
        row.heading = "Value";
        row.address = std::to_string(100 + i);
        row.left = {.value = true, .shown = "1:30"};
        row.right = {.value = true, .shown = "2:00 \xB5s"};
        row.sign = signs[i];
        comparison.counts.add(row.sign);
        comparison.rows.push_back(std::move(row));
    }
    return Row_List(std::move(comparison));
}

class CompareWindow : public ::testing::Test {
  protected:
    CompareWindow() {
        window.setRows(
            rowsWith({Sign::Differs, Sign::Equal, Sign::One_Side, Sign::Read_Only, Sign::Differs}));
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }
    template <class Widget> [[nodiscard]] Widget& named(const char* name) {
        Widget* widget = window.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    [[nodiscard]] QTableView& table() { return named<QTableView>("TBL_Comparison"); }
    [[nodiscard]] std::string cell(int row, Comparison_Column column) {
        return table().model()->index(row, static_cast<int>(column)).data().toString().toStdString();
    }
    [[nodiscard]] std::string label(const char* name) { return named<QLabel>(name).text().toStdString(); }
    [[nodiscard]] bool enabled(const char* name) { return named<QPushButton>(name).isEnabled(); }
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&table(), static_cast<Qt::Key>(key), modifiers);
    }

    Compare_Window window{nullptr};
};

TEST_F(CompareWindow, ListsWhatIsntEqualWithSignAndWord) {
    ASSERT_EQ(table().model()->rowCount(), 4);
    EXPECT_EQ(cell(0, Comparison_Column::Page), "Outputs");
    EXPECT_EQ(cell(0, Comparison_Column::Setting), "1, Value");
    EXPECT_EQ(cell(0, Comparison_Column::Left), "1:30");
    EXPECT_EQ(cell(0, Comparison_Column::Right), "2:00 \xC2\xB5s");
    EXPECT_EQ(cell(0, Comparison_Column::Sign), "\xE2\x89\xA0 differs");
    EXPECT_EQ(cell(1, Comparison_Column::Sign), "! on one side only");
    EXPECT_EQ(cell(2, Comparison_Column::Sign), "R read only");
    EXPECT_EQ(cell(0, Comparison_Column::Register), "100");
    EXPECT_EQ(label("LBL_Counts"), "5 values: 2 differ, 1 on one side only, 1 read only, 1 equal");
    EXPECT_EQ(label("LBL_Position"), "1 of 3") << "the table has the keyboard, and its first row";
}

TEST_F(CompareWindow, F8AndAltDownGoToTheNextDifference) {
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(label("LBL_Position"), "2 of 3");
    key(Qt::Key_F8);
    EXPECT_EQ(label("LBL_Position"), "3 of 3");
    EXPECT_EQ(table().currentIndex().row(), 3);
    key(Qt::Key_F8);
    EXPECT_EQ(label("LBL_Position"), "1 of 3") << "round";
    key(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(label("LBL_Position"), "3 of 3");
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(label("LBL_Position"), "2 of 3");
}

TEST_F(CompareWindow, TellsAllOfTheRowWithTheKeyboard) {
    EXPECT_EQ(
        label("LBL_Row"),
        "Page: Outputs; Setting: 1, Value; Left: 1:30; Right: 2:00 \xC2\xB5s; Sign: \xE2\x89\xA0 differs; "
        "Register: 100");
    key(Qt::Key_Down);
    EXPECT_EQ(label("LBL_Row"), "Page: Outputs; Setting: 3, Value; Left: 1:30; Right: 2:00 \xC2\xB5s; "
                                "Sign: ! on one side only; Register: 102");
    window.setReading(std::pair(0, 1));
    EXPECT_EQ(label("LBL_Row"), "");
}

TEST_F(CompareWindow, AllColumnsAreInsideASmallWindow) {
    for (const bool three : {false, true}) {
        Compare_Window small(nullptr);
        small.resize(600, 480);
        if (three)
            small.setRows(
                Row_List(rowsWith({Sign::Equal}).comparison(), rowsWith({Sign::Differs}).comparison()));
        small.show();
        QApplication::processEvents();
        EXPECT_EQ(small.width(), 600) << "its parts need more";
        const auto& shown = *small.findChild<QTableView*>("TBL_Comparison");
        EXPECT_LE(shown.horizontalHeader()->length(), shown.viewport()->width()) << three;
    }
}

TEST_F(CompareWindow, TheKeysOfTheTableDoNothingElsewhere) {
    named<QLineEdit>("EDT_Filter").setFocus();
    QTest::keyClick(&named<QLineEdit>("EDT_Filter"), Qt::Key_F8);
    EXPECT_EQ(label("LBL_Position"), "1 of 3");
}

TEST_F(CompareWindow, TheFilterChoosesRowsAndSaysWhatIsWrongWithIt) {
    QLineEdit& filter = named<QLineEdit>("EDT_Filter");
    QTest::keyClicks(&filter, "is:readonly");
    EXPECT_EQ(table().model()->rowCount(), 1);
    EXPECT_EQ(label("LBL_Position"), "no difference");
    EXPECT_FALSE(enabled("BOT_Next"));
    EXPECT_EQ(window.filter(), "is:readonly");
    filter.setText("is:wrong");
    EXPECT_TRUE(named<QLabel>("LBL_Filter_Fault").isVisible());
    EXPECT_EQ(table().model()->rowCount(), 1) << "the last filter stays";
    filter.clear();
    EXPECT_FALSE(named<QLabel>("LBL_Filter_Fault").isVisible());
    named<QCheckBox>("CHK_All").click();
    EXPECT_EQ(table().model()->rowCount(), 5);
}

TEST_F(CompareWindow, SpaceTicksTheSelectedRows) {
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Space);
    ASSERT_EQ(window.rows().tickedRows().size(), 2U);
    EXPECT_EQ(window.rows().tickedRows()[1]->name, "3");
    key(Qt::Key_Space);
    EXPECT_TRUE(window.rows().tickedRows().empty());
}

TEST_F(CompareWindow, AClickOnTheBoxTicksARow) {
    const QModelIndex first = table().model()->index(0, 0);
    EXPECT_TRUE(table().model()->setData(first, Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(window.rows().tickedRows().size(), 1U);
}

TEST_F(CompareWindow, TicksAllDifferencesAndTakesAllTicksAway) {
    named<QPushButton>("BOT_Tick").click();
    EXPECT_EQ(window.rows().tickedRows().size(), 3U);
    named<QPushButton>("BOT_Tick").click();
    EXPECT_TRUE(window.rows().tickedRows().empty());
}

TEST_F(CompareWindow, TellsOfTicksThatTheFilterHides) {
    const std::string counts = "5 values: 2 differ, 1 on one side only, 1 read only, 1 equal";
    named<QPushButton>("BOT_Tick").click();
    EXPECT_EQ(label("LBL_Counts"), counts + ". 3 ticked.");
    named<QLineEdit>("EDT_Filter").setText("is:missing");
    EXPECT_EQ(label("LBL_Counts"), counts + ". 3 ticked, 2 of them not listed.");
    named<QPushButton>("BOT_Tick").click();
    EXPECT_EQ(label("LBL_Counts"), counts);
}

TEST_F(CompareWindow, WhatNeedsTicksSaysSo) {
    window.setSend("Not now.");
    EXPECT_FALSE(enabled("BOT_Take"));
    EXPECT_EQ(named<QPushButton>("BOT_Take").toolTip(), plainTip("Tick rows first."));
    EXPECT_EQ(named<QPushButton>("BOT_Send").toolTip(), plainTip("Not now."));
    named<QPushButton>("BOT_Tick").click();
    EXPECT_TRUE(enabled("BOT_Take"));
    EXPECT_FALSE(enabled("BOT_Send"));
    EXPECT_EQ(named<QPushButton>("BOT_Take").toolTip(), "");
}

TEST_F(CompareWindow, WithoutAComparisonItSaysWhatIsMissing) {
    window.setNothing("Choose a file.");
    EXPECT_EQ(label("LBL_Counts"), "Choose a file.");
    EXPECT_EQ(label("LBL_Position"), "");
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_FALSE(enabled("BOT_Print"));
    EXPECT_FALSE(enabled("BOT_Export"));
}

TEST_F(CompareWindow, TellsWhatIsChosenAtTheSides) {
    std::vector<std::pair<int, int>> chosen;
    int wanted = -1;
    window.events.sideChosen = [&](int side, int entry) { chosen.emplace_back(side, entry); };
    window.events.fileWanted = [&](int side) { wanted = side; };
    window.setSideEntries(1, {"This document", "Controller", "Another file"}, 1);
    QTest::keyClick(&named<QComboBox>("CMB_Right"), Qt::Key_Down);
    EXPECT_THAT(chosen, ::testing::ElementsAre(std::pair(1, 2)));
    EXPECT_TRUE(enabled("BOT_File_Right"));
    window.tellSide(1, false, "factory values");
    EXPECT_FALSE(enabled("BOT_File_Right"));
    EXPECT_EQ(label("LBL_Words_Right"), "factory values");
    window.tellSide(1, true, "no file yet");
    named<QPushButton>("BOT_File_Right").click();
    EXPECT_EQ(wanted, 1);
}

TEST_F(CompareWindow, WhileTheControllerIsReadCancelEndsOnlyThat) {
    int cancelled = 0;
    window.events.cancelReading = [&] { ++cancelled; };
    window.setControllerWanted(true);
    window.setReading(std::pair(2, 5));
    EXPECT_TRUE(named<QProgressBar>("PRB_Reading").isVisible());
    EXPECT_EQ(named<QProgressBar>("PRB_Reading").value(), 2);
    EXPECT_EQ(named<QProgressBar>("PRB_Reading").maximum(), 5);
    EXPECT_FALSE(enabled("BOT_Read"));
    EXPECT_FALSE(table().isEnabled());
    EXPECT_EQ(named<QPushButton>("BOT_Close").text(), "Can&cel");
    QTest::keyClick(&window, Qt::Key_Escape);
    named<QPushButton>("BOT_Close").click();
    EXPECT_EQ(cancelled, 2);
    EXPECT_TRUE(window.isVisible());
    window.setReading(std::nullopt);
    EXPECT_TRUE(enabled("BOT_Read"));
    EXPECT_TRUE(table().isEnabled());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(CompareWindow, ClosedFromOutsideItEndsTheReadingToo) {
    int cancelled = 0;
    window.events.cancelReading = [&] { ++cancelled; };
    window.setReading(std::pair(0, 1));
    window.reject();
    EXPECT_EQ(cancelled, 1);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(CompareWindow, EveryControlHasItsNameAndAMnemonicOfItsOwn) {
    window.setControllerWanted(true);
    window.tellSide(0, true, "no file yet");
    window.tellSide(1, true, "no file yet");
    named<QPushButton>("BOT_Tick").click();
    EXPECT_THAT(doubles::controlFaults(window), ::testing::IsEmpty());
    EXPECT_THAT(doubles::keyClashes(window), ::testing::IsEmpty());
}

TEST_F(CompareWindow, ShowsThreeSidesWithTheDocumentInTheMiddle) {
    std::vector<bool> chosen;
    window.events.middleChosen = [&](bool on) { chosen.push_back(on); };
    named<QCheckBox>("CHK_Middle").click();
    EXPECT_EQ(chosen, (std::vector<bool>{true}));
    Comparison left = rowsWith({Sign::Equal, Sign::Differs}).comparison();
    left.rows[1].right.shown = "1:45";
    Comparison right = rowsWith({Sign::Not_Read, Sign::Differs, Sign::Differs}).comparison();
    right.rows.erase(right.rows.begin() + 1);
    window.setMiddle(true);
    window.setRows(Row_List(left, right));
    QAbstractItemModel& model = *named<QTableView>("TBL_Comparison").model();
    QStringList headings;
    for (int section = 0; section < model.columnCount(); ++section)
        headings << model.headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    EXPECT_EQ(headings.join('|').toStdString(),
              "Page|Setting|Left|Left sign|Document|Right sign|Right|Register");
    const auto row = [&](int number) {
        QStringList texts;
        for (int section = 2; section < model.columnCount() - 1; ++section)
            texts << model.index(number, section).data().toString();
        return texts.join('|').toStdString();
    };
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(row(0), "1:30|= equal|1:30|? not read|2:00 \xC2\xB5s");
    EXPECT_EQ(row(1), "1:30|\xE2\x89\xA0 differs|1:45||");
    EXPECT_EQ(row(2), "||1:30|\xE2\x89\xA0 differs|2:00 \xC2\xB5s");
    EXPECT_EQ(named<QLabel>("LBL_Counts").text().toStdString(),
              "Left: 2 values: 1 differs, 1 equal.\nRight: 3 values: 2 differ, 1 not read.");
    EXPECT_EQ(named<QPushButton>("BOT_Take").text(), "&Take right side");
    EXPECT_TRUE(named<QPushButton>("BOT_Take_Left").isVisible());
    EXPECT_THAT(doubles::controlFaults(window), ::testing::ElementsAre());
    EXPECT_THAT(doubles::keyClashes(window), ::testing::ElementsAre());
    window.setMiddle(false);
    window.setRows(rowsWith({Sign::Differs}));
    EXPECT_EQ(model.columnCount(), 6);
    EXPECT_FALSE(named<QPushButton>("BOT_Take_Left").isVisible());
}

} // namespace
} // namespace zorvane::ui
