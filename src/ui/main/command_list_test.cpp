// SPDX-License-Identifier: MIT
#include "ui/main/command_list.h"
#include "ui/testing/control_walk.h"

#include <QAction>
#include <QCoreApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Command_List_Test : testing::Test {
    Command_List_Test() {
        QMenu& file = *bar.addMenu("&File");
        file.addAction("&Open...")->setShortcut(QKeySequence("Ctrl+O"));
        file.addSeparator();
        file.addAction("Save &As...")->setEnabled(false);
        QMenu& recent = *file.addMenu("Recent Fi&les");
        recent.addAction("&1 /home/a && b.abc");
        bar.addMenu("&Communication")->addAction("&Upload to PC");
    }
    [[nodiscard]] std::vector<std::string> names(const QString& words) const {
        std::vector<std::string> all;
        for (const Named_Command& command : matchingCommands(commandsOf(bar), words))
            all.push_back(command.name.toStdString());
        return all;
    }
    QMenuBar bar;
};

TEST_F(Command_List_Test, NamesEachEntryByTheWayToIt) {
    EXPECT_THAT(names(""),
                ElementsAre("File > Open...", "File > Save As...", "File > Recent Files > 1 /home/a & b.abc",
                            "Communication > Upload to PC"));
    EXPECT_EQ(commandsOf(bar).front().keys, "Ctrl+O");
}

TEST_F(Command_List_Test, FindsByEachWordInAnyOrderAndCase) {
    EXPECT_THAT(names("FILE rec"), ElementsAre("File > Recent Files > 1 /home/a & b.abc"));
    EXPECT_THAT(names("pc up"), ElementsAre("Communication > Upload to PC"));
    EXPECT_THAT(names("nothing"), IsEmpty());
}

TEST_F(Command_List_Test, PutsThoseThatBeginSoInFront) {
    EXPECT_THAT(names("up"), ElementsAre("Communication > Upload to PC"));
    EXPECT_THAT(names("o").front(), "File > Open...");
    EXPECT_THAT(names("s").front(), "File > Save As...");
}

TEST_F(Command_List_Test, EnterChoosesWhatTheArrowsReached) {
    Command_List list(commandsOf(bar), nullptr);
    list.show();
    auto* const words = list.findChild<QLineEdit*>("EDT_Command");
    QTest::keyClick(words, Qt::Key_Down);
    QTest::keyClick(words, Qt::Key_Return);
    ASSERT_NE(list.chosen(), nullptr);
    EXPECT_EQ(list.chosen()->text(), "&1 /home/a && b.abc"); // what is disabled was passed over
    EXPECT_EQ(list.result(), QDialog::Accepted);
}

TEST_F(Command_List_Test, WhatIsDisabledSaysSoAndIsNotChosen) {
    Command_List list(commandsOf(bar), nullptr);
    list.show();
    auto* const words = list.findChild<QLineEdit*>("EDT_Command");
    words->setText("save as");
    auto* const shown = list.findChild<QListWidget*>("LST_Commands");
    ASSERT_EQ(shown->count(), 1);
    EXPECT_EQ(shown->item(0)->text(), "File > Save As...   not now");
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(list.chosen(), nullptr);
    EXPECT_TRUE(list.isVisible());
}

TEST_F(Command_List_Test, EscapeChoosesNothing) {
    Command_List list(commandsOf(bar), nullptr);
    list.show();
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_EQ(list.chosen(), nullptr);
    EXPECT_FALSE(list.isVisible());
}

TEST_F(Command_List_Test, EachControlHasItsNameAndWords) {
    Command_List list(commandsOf(bar), nullptr);
    list.show();
    EXPECT_THAT(doubles::controlFaults(list), IsEmpty());
    EXPECT_THAT(doubles::tabOrder(list), ElementsAre("EDT_Command", "LST_Commands"));
}

} // namespace
} // namespace zorvane::ui
