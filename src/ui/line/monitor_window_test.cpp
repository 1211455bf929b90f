// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "ui/line/monitor_window.h"
#include "ui/line/traffic_delegate.h"
#include "ui/testing/control_walk.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

Exchange_Record exchangeOf(std::int32_t number) {
    Exchange_Record exchange;
    exchange.at = number * microsPerSecond;
    exchange.duration = 12300;
    exchange.unit = 7;
    exchange.firstRegister = 40100;
    exchange.wireAddress = 99;
    exchange.count = 1;
    exchange.values = {static_cast<std::uint16_t>(number)};
    exchange.good = true;
    exchange.result = "good";
    exchange.sent = {0x07, 0x03};
    exchange.received = {0x07, static_cast<std::uint8_t>(number)};
    return exchange;
}

struct Monitor_Window_Test : ::testing::Test {
    Monitor_Window_Test() { window.show(); }

    /// As the link reports it, and time for the window to show it.
    void report(std::int32_t count) {
        for (std::int32_t i = 0; i < count; ++i)
            window.feed().exchangeSeen(exchangeOf(++last));
        if (window.feed().held() || !window.isVisible()) return;
        EXPECT_TRUE(QTest::qWaitFor([this] { return window.feed().waiting() == 0; }));
    }
    template <class Widget> Widget& at(const char* name) {
        auto* widget = window.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    void press(const char* name) { QTest::mouseClick(&at<QPushButton>(name), Qt::LeftButton); }
    QTableView& table() { return at<QTableView>("TBL_Exchanges"); }
    QString cell(int row, Traffic_Column column) {
        return window.model().index(row, static_cast<int>(column)).data().toString();
    }

    QStringList asked;
    std::int32_t last = 0;
    Qt_Link_Clock clock;
    Monitor_Window window{clock, 0,
                          [this](const QString& prompt, int, const QString&) {
                              asked += prompt;
                              return 1;
                          },
                          nullptr};
};

/// 640 by 512 pixels are what a screen of 1280 by 1024 has at 200 %, less frames.
TEST_F(Monitor_Window_Test, FitsOnASmallScreen) {
    at<QLabel>("LBL_Count").setText("100000 rows, paused, to site-brunnfeld.jsonl");
    at<QLabel>("LBL_Times")
        .setText("100000 reads of unit 247: half answered within 20.0 ms, 99 % within 61.4 ms.");
    at<QPushButton>("BOT_TimeOut").setText("&Take a Time-out of 200 ms");
    QApplication::processEvents();
    window.resize(0, 0);
    EXPECT_LE(window.width(), 632);
}

TEST_F(Monitor_Window_Test, IsUsableByKeyboardAndScreenReader) {
    EXPECT_EQ(doubles::controlFaults(window), std::vector<std::string>{});
    EXPECT_EQ(doubles::keyClashes(window), std::vector<std::string>{});
}

TEST_F(Monitor_Window_Test, SaysWhatItsPartsAre) {
    EXPECT_EQ(doubles::captions(window),
              (std::vector<std::string>{"&Pause", "C&lear", "&Copy", "&Save...",
                                        "To &File...|Writes all traffic to a file as it comes", "&Open...",
                                        "0 rows", "No read was answered yet.",
                                        "&Take Time-out|The template's time-out is in force"}));
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Bytes").accessibleName(), "Raw bytes");
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Bytes").placeholderText(), "Select a row to see its bytes.");
}

TEST_F(Monitor_Window_Test, ShowsExchangesAndTheBytesOfTheOneSelected) {
    report(3);
    EXPECT_EQ(window.model().rowCount(), 3);
    EXPECT_EQ(cell(1, Traffic_Column::Time), "00:00:02.000");
    EXPECT_EQ(cell(1, Traffic_Column::Values), "2");
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Bytes").toPlainText(), "");
    table().selectRow(1);
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Bytes").toPlainText(), "Tx: 07 03\nRx: 07 02");
    EXPECT_EQ(at<QLabel>("LBL_Count").text(), "3 rows");
}

TEST_F(Monitor_Window_Test, StrayBytesAndNotesOfThePortAreRows) {
    window.feed().portNoted(0, "The port is open.");
    window.feed().straySeen({0, {0xFF}, "noise"});
    report(0);
    EXPECT_EQ(cell(0, Traffic_Column::Result), "The port is open.");
    EXPECT_EQ(cell(1, Traffic_Column::Result), "1 byte outside an exchange: noise");
}

TEST_F(Monitor_Window_Test, PausedItHoldsRowsBackAndShowsThemAfterwards) {
    report(1);
    press("BOT_Pause");
    report(2);
    QTest::qWait(2 * Traffic_Feed::leastPauseMs);
    EXPECT_EQ(window.model().rowCount(), 1);
    EXPECT_EQ(at<QLabel>("LBL_Count").text(), "1 rows, paused");
    press("BOT_Pause");
    EXPECT_EQ(window.model().rowCount(), 3);
    EXPECT_EQ(at<QLabel>("LBL_Count").text(), "3 rows");
}

TEST_F(Monitor_Window_Test, PauseIsToggledWithoutAClickToo) {
    at<QPushButton>("BOT_Pause").toggle();
    EXPECT_TRUE(window.feed().held());
    EXPECT_EQ(at<QLabel>("LBL_Count").text(), "0 rows, paused");
    at<QPushButton>("BOT_Pause").toggle();
    EXPECT_FALSE(window.feed().held());
}

TEST_F(Monitor_Window_Test, ClearEmptiesItWhatWaitsToo) {
    report(2);
    table().selectRow(0);
    press("BOT_Pause");
    report(2);
    press("BOT_Clear");
    press("BOT_Pause");
    EXPECT_EQ(window.model().rowCount(), 0);
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Bytes").toPlainText(), "");
}

TEST_F(Monitor_Window_Test, CopiesTheSelectedRowsElseAll) {
    report(3);
    const QString head = "Time\tms\tUnit\tFunction\tRegisters\tOn the wire\tValues\tResult\tBytes\n";
    table().selectRow(1);
    press("BOT_Copy");
    EXPECT_EQ(QApplication::clipboard()->text(),
              head + "00:00:02.000\t12.3\t7\t3 read\t40100\t99\t2\tgood\tTx: 07 03 Rx: 07 02\n");
    table().clearSelection();
    press("BOT_Copy");
    EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 4);
    table().selectRow(2);
    table().setFocus();
    QTest::keySequence(&table(), QKeySequence::Copy);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("00:00:03.000"));
}

TEST_F(Monitor_Window_Test, BeginsInTheTableSoThatKeysSelectRows) {
    report(2);
    EXPECT_EQ(window.focusWidget(), &table());
    QTest::keyClick(window.focusWidget(), Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Bytes").toPlainText(), "Tx: 07 03\nRx: 07 01");
}

TEST_F(Monitor_Window_Test, EscapeClosesItAndKeepsItsRows) {
    report(2);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.model().rowCount(), 2);
}

TEST_F(Monitor_Window_Test, SavesAsText) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("monitor.txt");
    report(2);
    window.OpenFile.run = [&path](QFileDialog& dialog) {
        dialog.show();
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
        return true;
    };
    press("BOT_Save");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), window.text());
    EXPECT_TRUE(asked.isEmpty());
}

TEST_F(Monitor_Window_Test, AFileThatCantBeWrittenIsTold) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("missing/monitor.txt");
    window.OpenFile.run = [&path](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save the monitor as...");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Text with tabs (*.txt)"});
        dialog.show();
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
        return true;
    };
    press("BOT_Save");
    EXPECT_EQ(asked,
              QStringList{"The file can't be written:\n" + path + "\n\nChoose another folder or name."});
}

TEST_F(Monitor_Window_Test, WritesAllTrafficToAFileAsItComes) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("line.jsonl");
    window.OpenFile.run = [&path](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Write all traffic to...");
        dialog.show();
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
        return true;
    };
    press("BOT_To_File");
    EXPECT_EQ(at<QLabel>("LBL_Count").text(), "0 rows, to line.jsonl");
    window.feed().setHeld(true);
    window.feed().exchangeSeen(exchangeOf(1));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count('\n'), 1) << "with the system at once, paused or not";
    press("BOT_To_File");
    window.feed().exchangeSeen(exchangeOf(2));
    EXPECT_EQ(file.size(), file.pos());
    EXPECT_EQ(at<QLabel>("LBL_Count").text(), "0 rows, paused");
}

TEST_F(Monitor_Window_Test, TheSwitchGoesBackWhenNoFileIsChosenOrItCantBeWritten) {
    window.OpenFile.run = [](QFileDialog&) { return false; };
    press("BOT_To_File");
    EXPECT_FALSE(at<QPushButton>("BOT_To_File").isChecked());
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_FALSE(window.startFile("/nowhere/line.jsonl"));
    EXPECT_EQ(at<QLabel>("LBL_Count").text(), "0 rows");
}

TEST_F(Monitor_Window_Test, ProposesATimeOutFromTheReadsAndTakesItAtOneClick) {
    Port_Settings settings;
    settings.port = "tcp:gate:502";
    settings.slave = 7;
    bool ofTemplate = true;
    Monitor_Window own(clock, 0, {}, nullptr,
                       {[&] { return settings; }, [&] { return ofTemplate; },
                        [&](std::int32_t timeOutMs) { settings.timeOutMs = timeOutMs; }});
    own.show();
    auto& button = *own.findChild<QPushButton*>("BOT_TimeOut");
    const auto report50 = [&] {
        for (std::int32_t i = 0; i < 50; ++i)
            own.feed().exchangeSeen(exchangeOf(i));
        EXPECT_TRUE(QTest::qWaitFor([&] { return own.feed().waiting() == 0; }));
    };
    EXPECT_FALSE(button.isEnabled());
    report50();
    EXPECT_FALSE(button.isEnabled()) << "the template's counts";
    ofTemplate = false;
    report50();
    EXPECT_EQ(own.findChild<QLabel*>("LBL_Times")->text(),
              "100 reads of unit 7: half answered within 12.3 ms, 99 % within 12.3 ms.");
    EXPECT_EQ(button.text(), "&Take a Time-out of 100 ms");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(settings.timeOutMs, 100);
    EXPECT_FALSE(button.isEnabled());
}

TEST_F(Monitor_Window_Test, FollowsTheEndUnlessTheUserScrolledAway) {
    report(500);
    QScrollBar& bar = *table().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(10);
    report(10);
    EXPECT_EQ(bar.value(), 10);
}

TEST_F(Monitor_Window_Test, ClosingOnlyHidesItAndItGoesOnCollecting) {
    report(1);
    window.close();
    EXPECT_FALSE(window.isVisible());
    report(1);
    QTest::qWait(2 * Traffic_Feed::leastPauseMs);
    EXPECT_EQ(window.model().rowCount(), 1) << "nobody would see it";
    window.show();
    EXPECT_EQ(window.model().rowCount(), 2);
}

TEST_F(Monitor_Window_Test, PausedItHoldsRowsBackAcrossHidingToo) {
    press("BOT_Pause");
    report(1);
    window.close();
    window.show();
    EXPECT_EQ(window.model().rowCount(), 0);
    press("BOT_Pause");
    EXPECT_EQ(window.model().rowCount(), 1);
}

TEST_F(Monitor_Window_Test, ACellShowsAsMuchOfItsTextAsFits) {
    const Traffic_Delegate delegate;
    const QFontMetrics metrics(window.font());
    const QString values = QStringLiteral("1040, 65531 (-5), 1120, 1160");
    EXPECT_EQ(delegate.fitting(values, 10000, metrics), values);
    for (int width = 0; width < metrics.horizontalAdvance(values); width += 7) {
        const QString shown = delegate.fitting(values, width, metrics);
        EXPECT_TRUE(shown.endsWith(QChar(0x2026)) || shown == values) << shown.toStdString();
        EXPECT_TRUE(values.startsWith(shown.chopped(1)));
        if (shown.size() > 1) {
            EXPECT_LE(metrics.horizontalAdvance(shown), width + shown.size());
        }
    }
    EXPECT_EQ(delegate.fitting(QString(), 50, metrics), QString());
    EXPECT_EQ(delegate.fitting(QStringLiteral("\u00B0C \u20AC"), 10000, metrics),
              QStringLiteral("\u00B0C \u20AC"));
}

TEST_F(Monitor_Window_Test, FailedRowsAreRedAndSelectedOnesHighlighted) {
    Exchange_Record failed = exchangeOf(1);
    failed.good = false;
    failed.result = "wrong CRC";
    window.feed().exchangeSeen(failed);
    report(1);
    const auto dominant = [this](int row) {
        const QRect place = table().visualRect(window.model().index(row, 7));
        const QImage picture = table().viewport()->grab(place).toImage();
        int red = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                red += colour.red() > colour.green() + 60 && colour.red() > colour.blue() + 60 ? 1 : 0;
            }
        return red;
    };
    EXPECT_GT(dominant(0), 10);
    EXPECT_EQ(dominant(1), 0);
    table().selectRow(1);
    const QRect place = table().visualRect(window.model().index(1, 7));
    const QColor ground = table().viewport()->grab(place).toImage().pixelColor(place.width() - 3, 2);
    EXPECT_NE(ground, table().palette().color(QPalette::Base));
}

TEST_F(Monitor_Window_Test, KeepsItsPlaceInTwips) {
    window.setPlace({1500, 3000, 12000, 6000});
    EXPECT_EQ(window.size(), QSize(800, 400));
    const Window_Place place = window.place();
    EXPECT_EQ(place.left, 1500);
    EXPECT_EQ(place.top, 3000);
    EXPECT_EQ(place.width, 12000);
    EXPECT_EQ(place.height, 6000);
    window.setPlace({-900000, 0, 9000, 6000}); // on a screen that is gone
    EXPECT_EQ(window.place().left, 1500);
    EXPECT_EQ(window.place().width, 9000);
}

TEST_F(Monitor_Window_Test, AStoredSizeBeyondTheScreensIsCutToThem) {
    window.setPlace({0, 0, 2'000'000'000, 2'000'000'000});
    EXPECT_EQ(window.size(), window.screen()->virtualSize());
}

TEST(TrafficModel, IsAModelAndKeepsTheNewestRowsOnly) {
    Traffic_Model model(0, 5);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto add = [&model](std::int32_t from, std::int32_t count) {
        std::vector<Traffic_Entry> entries;
        for (std::int32_t i = 0; i < count; ++i)
            entries.emplace_back(exchangeOf(from + i));
        model.add(std::move(entries));
    };
    const auto value = [&model](int row) { return model.index(row, 6).data().toInt(); };
    add(1, 3);
    EXPECT_EQ(model.rowCount(), 3);
    add(4, 4);
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(value(0), 3);
    add(10, 20);
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(value(0), 25);
    EXPECT_EQ(value(4), 29);
    model.clear();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(TrafficView, ARowThatGoesTakesTheChoiceWithIt) {
    Traffic_Model model(0, 3);
    Traffic_View view(model);
    auto& table = *view.findChild<QTableView*>(QStringLiteral("TBL_Exchanges"));
    const auto& bytes = *view.findChild<QPlainTextEdit*>(QStringLiteral("TXT_Bytes"));
    view.add({exchangeOf(1), exchangeOf(2), exchangeOf(3)});
    table.setCurrentIndex(model.index(1, 0));
    const QString chosen = bytes.toPlainText();
    EXPECT_NE(chosen, "");
    view.add({exchangeOf(4)});
    EXPECT_EQ(table.currentIndex().row(), 0);
    EXPECT_EQ(bytes.toPlainText(), chosen);
    view.add({exchangeOf(5)});
    EXPECT_FALSE(table.currentIndex().isValid());
    EXPECT_EQ(bytes.toPlainText(), "");
}

TEST(TrafficFeed, HandsRowsOnTogetherAndRunsNoTimerWhileNothingComes) {
    std::vector<std::size_t> batches;
    Traffic_Feed feed([&](const std::vector<Traffic_Entry>& entries) { batches.push_back(entries.size()); });
    QTest::qWait(3 * Traffic_Feed::leastPauseMs);
    EXPECT_TRUE(batches.empty());
    for (int i = 0; i < 50; ++i)
        feed.portNoted(i, "note");
    EXPECT_TRUE(batches.empty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !batches.empty(); }));
    EXPECT_EQ(batches, std::vector<std::size_t>{50});
}

TEST(TrafficFeed, HeldBackItKeepsTheNewestOnly) {
    std::vector<Traffic_Entry> shown;
    Traffic_Feed feed([&](std::vector<Traffic_Entry> entries) { shown = std::move(entries); }, 3);
    feed.setHeld(true);
    for (int i = 0; i < 5; ++i)
        feed.portNoted(i, std::to_string(i));
    EXPECT_EQ(feed.waiting(), 3U);
    feed.setHeld(false);
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(std::get<Port_Note>(shown[0]).text, "2");
}

} // namespace
} // namespace zorvane::ui
