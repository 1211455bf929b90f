// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/scripted_port.h"
#include "survey/find/testing/simulated_line.h"
#include "ui/survey/find_window.h"
#include "ui/survey/rows_table.h"
#include "ui/testing/control_walk.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using survey::testing::Simulated_Line;
using testing::Hand_Clock;
using testing::Scripted_Finder;

struct Find_Window_Test : ::testing::Test {
    Find_Window_Test() {
        present.port = "ttyUSB0";
        present.timeOutMs = 700;
        line.controllers = {{.unit = 3}, {.unit = 5}};
    }

    Find_Window& make() {
        Find_Services services{finder, line, clock, {}, lastGood};
        services.keepLastGood = [this](const survey::Search_Report& report) {
            if (!report.found.empty()) lastGood = report.found.front().line;
        };
        services.identify = identify;
        if (identify) services.templates = {{&document, "", 0}};
        window = std::make_unique<Find_Window>(std::move(services), present, nullptr);
        window->show();
        return *window;
    }
    template <class Widget> Widget& at(const char* name) {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    void press(const char* name) { QTest::mouseClick(&at<QPushButton>(name), Qt::LeftButton); }
    /// Lets simulated time pass, and events be served.
    void run(Micros span) {
        clock.runFor(span);
        QApplication::processEvents();
    }
    Rows_Model& rows() { return static_cast<Rows_Table&>(at<QTableView>("TBL_Found")).rows(); }

    Hand_Clock clock;
    Simulated_Line line{clock, {9600, 'N', 8, 1}};
    Scripted_Finder finder;
    Port_Settings present;
    std::optional<Line_Settings> lastGood;
    Declara_Zorvane document;
    std::function<survey::Found_Identity(const Port_Settings&, const std::function<bool()>&)> identify;
    std::unique_ptr<Find_Window> window;
};

TEST_F(Find_Window_Test, IsUsableByKeyboardAndScreenReader) {
    make();
    EXPECT_EQ(doubles::controlFaults(*window), std::vector<std::string>{});
    EXPECT_EQ(doubles::keyClashes(*window), std::vector<std::string>{});
    EXPECT_EQ(doubles::tabOrder(*window).front(), "CMB_Port");
}

TEST_F(Find_Window_Test, ShowsWhatIsTriedAndWhatWasFound) {
    make();
    at<QLineEdit>("EDT_Units").setText("1-5");
    press("BOT_Find");
    EXPECT_EQ(at<QPushButton>("BOT_Find").text(), "S&top");
    EXPECT_FALSE(at<QLineEdit>("EDT_Units").isEnabled());
    run(10);
    EXPECT_EQ(at<QLabel>("LBL_Tried").text(), "Listening at 19200,e,8,2");
    run(2 * microsPerSecond);
    EXPECT_EQ(at<QLabel>("LBL_Tried").text().left(19), "19200,e,8,2, unit 5");
    EXPECT_GT(at<QProgressBar>("BAR_Progress").value(), 0);
    while (rows().rowCount() == 0 && window->running())
        run(50 * microsPerMs);
    EXPECT_TRUE(window->running()) << "a row is shown as soon as it is found";
    EXPECT_TRUE(at<QPushButton>("BOT_Use").isEnabled());
    run(60 * microsPerSecond);
    EXPECT_FALSE(window->running());
    ASSERT_EQ(rows().rowCount(), 2);
    EXPECT_EQ(rows().rows()[0].mid(0, 3), (QStringList{"3", "9600,n,8,1", "?"}));
    EXPECT_EQ(at<QLabel>("LBL_Tried").text().left(8), "2 found ");
    EXPECT_EQ(lastGood, (Line_Settings{9600, 'N', 8, 1}));
    for (const Byte_Array& frame : line.written)
        EXPECT_EQ(frame[1], 3);
}

TEST_F(Find_Window_Test, TakesTheControllerThatIsChosen) {
    make();
    at<QLineEdit>("EDT_Units").setText("1-5");
    EXPECT_FALSE(at<QPushButton>("BOT_Use").isEnabled());
    press("BOT_Find");
    run(60 * microsPerSecond);
    QTest::keyClick(&at<QTableView>("TBL_Found"), Qt::Key_Down);
    press("BOT_Use");
    EXPECT_EQ(window->result(), QDialog::Accepted);
    Port_Settings expected = present;
    expected.slave = 5;
    expected.line = {9600, 'N', 8, 1};
    EXPECT_EQ(window->chosen(), expected);
}

/// Nobody has to wait for the other 244 numbers.
TEST_F(Find_Window_Test, TakesAControllerWhileTheSearchGoesOn) {
    make();
    press("BOT_Find");
    while (rows().rowCount() == 0 && window->running())
        run(50 * microsPerMs);
    press("BOT_Use");
    run(microsPerSecond);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->result(), QDialog::Accepted);
    EXPECT_EQ(window->chosen().slave, 3);
    EXPECT_EQ(window->chosen().line, (Line_Settings{9600, 'N', 8, 1}));
    EXPECT_EQ(lastGood, (Line_Settings{9600, 'N', 8, 1}));
    EXPECT_FALSE(line.isOpen());
}

TEST_F(Find_Window_Test, StopsWithWhatWasFoundSoFar) {
    make();
    at<QLineEdit>("EDT_Settings").setText("9600,n,8,1");
    press("BOT_Find");
    run(4 * microsPerSecond);
    press("BOT_Find");
    run(microsPerSecond);
    EXPECT_FALSE(window->running());
    EXPECT_EQ(rows().rowCount(), 2);
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Notes").toPlainText(), "The search was stopped before its end.");
    EXPECT_FALSE(line.isOpen());
}

/// And the progress stays where the search was.
TEST_F(Find_Window_Test, WhatAStoppedSearchFoundCanBeUsed) {
    make();
    at<QLineEdit>("EDT_Settings").setText("9600,n,8,1");
    press("BOT_Find");
    while (rows().rowCount() == 0 && window->running())
        run(50 * microsPerMs);
    press("BOT_Find");
    run(microsPerSecond);
    ASSERT_FALSE(window->running());
    EXPECT_LT(at<QProgressBar>("BAR_Progress").value(), at<QProgressBar>("BAR_Progress").maximum());
    EXPECT_TRUE(at<QPushButton>("BOT_Use").isEnabled());
    press("BOT_Use");
    EXPECT_EQ(window->result(), QDialog::Accepted);
    EXPECT_EQ(window->chosen().slave, 3);
}

TEST_F(Find_Window_Test, AWholeSearchEndsAtAHundredPercent) {
    make();
    at<QLineEdit>("EDT_Units").setText("1-5");
    press("BOT_Find");
    run(60 * microsPerSecond);
    ASSERT_FALSE(window->running());
    EXPECT_EQ(at<QProgressBar>("BAR_Progress").value(), at<QProgressBar>("BAR_Progress").maximum());
}

TEST_F(Find_Window_Test, ClosingStopsTheSearchFirst) {
    make();
    press("BOT_Find");
    run(2 * microsPerSecond);
    press("BOT_Close");
    EXPECT_TRUE(window->isVisible());
    run(10);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(line.isOpen());
}

TEST_F(Find_Window_Test, SaysWhatIsWrongWithWhatWasEntered) {
    make();
    at<QLineEdit>("EDT_Units").setText("0");
    press("BOT_Find");
    EXPECT_FALSE(window->running());
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Notes").toPlainText(),
              "\"0\" is not unit numbers of 1 to 247, as in 1-20,40.");
}

TEST_F(Find_Window_Test, AsksEachControllerWhoseItIs) {
    std::vector<std::int32_t> asked;
    identify = [&](const Port_Settings& settings, const std::function<bool()>& cancelled) {
        EXPECT_FALSE(cancelled());
        asked.push_back(settings.slave);
        return settings.slave == 3 ? survey::Found_Identity{"is", "KVRT207D"}
                                   : survey::Found_Identity{"isn't", {}};
    };
    make();
    at<QLineEdit>("EDT_Units").setText("1-5");
    press("BOT_Find");
    run(60 * microsPerSecond);
    EXPECT_EQ(asked, (std::vector<std::int32_t>{3, 5}));
    EXPECT_EQ(rows().rows()[0][2], "KVRT207D");
    EXPECT_EQ(rows().rows()[1][2], "another");
}

TEST_F(Find_Window_Test, NamesAnotherMasterAndStops) {
    line.masters = {{.firstAt = 100 * microsPerMs, .request = testing::withCrc({7, 3, 0, 0, 0, 10})}};
    make();
    at<QLineEdit>("EDT_Settings").setText("9600,n,8,1");
    press("BOT_Find");
    run(2 * microsPerSecond);
    EXPECT_FALSE(window->running());
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Notes").toPlainText(),
              "Another master is on the line: it asks unit 7, 10 registers from address 0 on (function 3). "
              "Let only one master use it. The search has stopped.");
    EXPECT_TRUE(line.written.empty());
}

} // namespace
} // namespace zorvane::ui
