// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/listen/testing/scripted_listening_port.h"
#include "ui/survey/listen_window.h"
#include "ui/survey/rows_table.h"
#include "ui/testing/control_walk.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using survey::testing::Scripted_Listening_Port;
using testing::bytesOf;
using testing::Hand_Clock;
using testing::Scripted_Finder;
using testing::withCrc;

struct Listen_Window_Test : ::testing::Test {
    Listen_Window_Test() {
        present.port = "ttyUSB0";
        present.line = {19200, 'E', 8, 1};
        window = std::make_unique<Listen_Window>(
            Listen_Services{finder,
                            port,
                            clock,
                            {},
                            0,
                            [this](const QString& prompt, int, const QString&) {
                                asked += prompt;
                                return 1;
                            }},
            present, nullptr);
        window->show();
    }

    template <class Widget> Widget& at(const char* name) {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    void press(const char* name) { QTest::mouseClick(&at<QPushButton>(name), Qt::LeftButton); }
    void poll() {
        port.deliver(withCrc(bytesOf("01 03 00 64 00 02")));
        clock.runFor(20 * microsPerMs);
        port.deliver(withCrc(bytesOf("01 03 04 00 01 00 02")));
        clock.runFor(480 * microsPerMs);
    }
    void stop() {
        press("BOT_Listen");
        clock.runFor(1);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window->running(); }));
    }
    Rows_Model& rows() { return static_cast<Rows_Table&>(at<QTableView>("TBL_Asked")).rows(); }

    Hand_Clock clock;
    Scripted_Listening_Port port;
    Scripted_Finder finder;
    Port_Settings present;
    QStringList asked;
    std::unique_ptr<Listen_Window> window;
};

TEST_F(Listen_Window_Test, IsUsableByKeyboardAndScreenReader) {
    EXPECT_EQ(doubles::controlFaults(*window), std::vector<std::string>{});
    EXPECT_EQ(doubles::keyClashes(*window), std::vector<std::string>{});
    EXPECT_EQ(doubles::tabOrder(*window).front(), "CMB_Port");
}

TEST_F(Listen_Window_Test, ShowsWhoIsAskedWhatWhileItListens) {
    press("BOT_Listen");
    EXPECT_EQ(port.openedAs, "ttyUSB0 19200,e,8,1");
    poll();
    poll();
    EXPECT_TRUE(QTest::qWaitFor([this] { return rows().rowCount() == 1; }));
    EXPECT_EQ(rows().rows()[0][2], "100-101");
    stop();
    EXPECT_EQ(at<QLabel>("LBL_Sums").text(),
              "4 frames: 2 requests and 2 answers, 0 of them without the other. Load 1.9 %.");
    EXPECT_EQ(rows().rows()[0],
              (QStringList{"1", "3", "100-101", "2", "500.0 ms", "2", "0", "20.0 ms", "20.0 ms", ""}));
    EXPECT_FALSE(port.isOpen);
}

TEST_F(Listen_Window_Test, SavesWhatWasHeard) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("site.pcapng");
    EXPECT_FALSE(at<QPushButton>("BOT_Save").isEnabled());
    press("BOT_Listen");
    poll();
    EXPECT_TRUE(window->save(path)) << "while it listens, too";
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->saving(); }));
    const qint64 first = QFile(path).size();
    EXPECT_GT(first, 100);
    poll();
    stop();
    EXPECT_TRUE(window->save(path));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->saving(); }));
    EXPECT_GT(QFile(path).size(), first);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.read(4), QByteArray::fromHex("0a0d0d0a"));
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Notes").toPlainText(), "Saved: " + path);
    EXPECT_FALSE(window->save("/nowhere/site.pcapng"));
}

TEST_F(Listen_Window_Test, SaysWhatToDo) {
    at<QLineEdit>("EDT_Settings").setText("9600");
    press("BOT_Listen");
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Notes").toPlainText(),
              "\"9600\" is not baud,parity,data bits,stop bits, as in 9600,n,8,1.");
    at<QLineEdit>("EDT_Settings").setText("9600,n,8,1");
    port.opens = false;
    press("BOT_Listen");
    clock.runFor(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->running(); }));
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Notes").toPlainText(), "The port ttyUSB0: No such port: ttyUSB0");
}

TEST_F(Listen_Window_Test, ListensToSerialPortsAlone) {
    present.port = "tcp:gate:502";
    Listen_Window network({finder, port, clock, {}, 0, {}}, present, nullptr);
    network.show();
    QTest::mouseClick(network.findChild<QPushButton*>("BOT_Listen"), Qt::LeftButton);
    EXPECT_EQ(
        network.findChild<QPlainTextEdit*>("TXT_Notes")->toPlainText(),
        "Only a serial port can be listened to: other ports bring the answers to their own requests alone. "
        "Choose a serial port.");
}

TEST_F(Listen_Window_Test, ClosingStopsItFirst) {
    press("BOT_Listen");
    poll();
    press("BOT_Close");
    clock.runFor(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_FALSE(port.isOpen);
}

} // namespace
} // namespace zorvane::ui
