// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"
#include "ui/line/port_dialog.h"
#include "ui/testing/control_walk.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using testing::Hand_Clock;
using testing::Scripted_Finder;
using testing::Scripted_Port;
using testing::Toy_Slave;

struct Port_Dialog_Test : ::testing::Test {
    Port_Dialog_Test() {
        finder.list = {{"ttyUSB0", "/dev/ttyUSB0", "FT232R USB UART", {}, {}, {}},
                       {"ttyS0", "/dev/ttyS0", {}, {}, {}, {}}};
        chosen.port = "ttyUSB0";
        chosen.slave = 12;
        chosen.line = {19200, 'E', 7, 2};
        chosen.retries = 5;
        chosen.timeOutMs = 750;
        chosen.rts = Rts_Mode::HighOnSend;
        chosen.txDelayMs = 3;
        chosen.adapterEchoes = true;
    }

    Port_Dialog& make() {
        dialog = std::make_unique<Port_Dialog>(Port_Dialog_Services{finder, port, clock, timings, 40100,
                                                                    40001, [this] { told += "lent "; },
                                                                    [this] { told += "back "; }},
                                               chosen, nullptr);
        dialog->show();
        return *dialog;
    }
    template <class Widget> Widget& at(const char* name) {
        auto* widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    QString verdict() { return at<QPlainTextEdit>("TXT_Verdict").toPlainText(); }
    QString diagnosis() { return at<QPlainTextEdit>("TXT_Diagnosis").toPlainText(); }
    void press(const char* name) { QTest::mouseClick(&at<QPushButton>(name), Qt::LeftButton); }

    Scripted_Finder finder;
    Scripted_Port port;
    Hand_Clock clock;
    Template_Timings timings{20, 600};
    Port_Settings chosen;
    std::string told;
    std::unique_ptr<Port_Dialog> dialog;
};

TEST_F(Port_Dialog_Test, IsUsableByKeyboardAndScreenReader) {
    make();
    EXPECT_EQ(doubles::controlFaults(*dialog), std::vector<std::string>{});
    EXPECT_EQ(doubles::keyClashes(*dialog), std::vector<std::string>{});
    EXPECT_EQ(doubles::tabOrder(*dialog).front(), "CMB_Port");
}

/// 640 by 512 pixels are what a screen of 1280 by 1024 has at 200 %, less frames.
TEST_F(Port_Dialog_Test, FitsOnASmallScreen) {
    make().resize(0, 0);
    QApplication::processEvents();
    EXPECT_LE(dialog->width(), 608);
    EXPECT_LE(dialog->height(), 486);
}

TEST_F(Port_Dialog_Test, SaysWhatEachSettingIs) {
    make();
    const std::string inForce = "Time-out in force: 600 ms, from the template; the 750 ms here don't count.\n"
                                "Pause between requests: 20 ms, from the template.";
    EXPECT_EQ(
        doubles::captions(*dialog),
        (std::vector<std::string>{"Port",
                                  "&Port:",
                                  "FT232R USB UART",
                                  "&Network...|A port on a network, by host and port",
                                  "&Slave number:",
                                  "Line, as the controller has it",
                                  "&Baud:",
                                  "P&arity:",
                                  "&Data bits:",
                                  "Stop b&its:",
                                  "Exchange",
                                  "&Retries:",
                                  "Time-o&ut:",
                                  inForce,
                                  "RS-485",
                                  "RTS &mode:",
                                  "Dela&y before sending:",
                                  "Adapter &echoes|The adapter repeats what is sent",
                                  "&Test|Reads one register with what is entered",
                                  "Ans&wer Times|Reads one register fifty times and proposes a time-out",
                                  "Ta&ke Time-out|Enters the time-out that the answer times suggest",
                                  "&Copy Report|Copies what was tried and what came of it",
                                  "OK",
                                  "Cancel"}));
    std::vector<std::string> modes;
    modes.reserve(3);
    for (int entry = 0; entry < at<QComboBox>("CMB_Rts").count(); ++entry)
        modes.push_back(at<QComboBox>("CMB_Rts").itemText(entry).toStdString());
    EXPECT_EQ(modes, (std::vector<std::string>{"None: the adapter itself, or RS-232",
                                               "RTS high while sending", "Kernel RS-485"}));
    EXPECT_EQ(at<QPlainTextEdit>("TXT_Verdict").accessibleName(), "Result of the test");
}

TEST_F(Port_Dialog_Test, ShowsAndGivesBackEverySetting) {
    make();
    EXPECT_EQ(at<QComboBox>("CMB_Port").currentText(), "ttyUSB0");
    EXPECT_EQ(at<QLabel>("LBL_Port").text(), "FT232R USB UART");
    EXPECT_EQ(at<QComboBox>("CMB_Parity").currentText(), "Even");
    EXPECT_EQ(at<QComboBox>("CMB_Rts").currentText(), "RTS high while sending");
    EXPECT_EQ(dialog->settings(), chosen);
}

TEST_F(Port_Dialog_Test, TakesWhatTheUserEnters) {
    make();
    at<QComboBox>("CMB_Port").setEditText(" /tmp/relay ");
    at<QSpinBox>("NUM_Slave").setValue(247);
    at<QComboBox>("CMB_Baud").setEditText("31250");
    at<QComboBox>("CMB_Parity").setCurrentText("Odd");
    at<QComboBox>("CMB_DataBits").setCurrentText("8");
    at<QComboBox>("CMB_StopBits").setCurrentText("1");
    at<QSpinBox>("NUM_Retries").setValue(0);
    at<QSpinBox>("NUM_TimeOut").setValue(1500);
    at<QComboBox>("CMB_Rts").setCurrentText("Kernel RS-485");
    at<QSpinBox>("NUM_Delay").setValue(9);
    at<QCheckBox>("CHK_Echo").setChecked(false);
    const Port_Settings expected{"/tmp/relay", 247, {31250, 'O', 8, 1}, 0, 1500, Rts_Mode::KernelRs485, 9,
                                 false};
    EXPECT_EQ(dialog->settings(), expected);
    press("BOT_Ok");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(Port_Dialog_Test, SlaveNumberAndBaudStayInTheirRanges) {
    make();
    EXPECT_EQ(at<QSpinBox>("NUM_Slave").minimum(), 1);
    EXPECT_EQ(at<QSpinBox>("NUM_Slave").maximum(), 247);
    at<QComboBox>("CMB_Baud").setEditText("299");
    press("BOT_Ok");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(verdict(), "The baud rate is 299, it must be from 300 to 921600.");
    at<QComboBox>("CMB_Baud").lineEdit()->clear();
    QTest::keyClicks(at<QComboBox>("CMB_Baud").lineEdit(), "x9216001");
    EXPECT_EQ(at<QComboBox>("CMB_Baud").currentText(), "921600");
}

TEST_F(Port_Dialog_Test, ThePortListHasDescriptionsAndTheSimulatedController) {
    make();
    auto& box = at<QComboBox>("CMB_Port");
    ASSERT_EQ(box.count(), 3);
    EXPECT_EQ(box.itemData(0, Qt::DisplayRole), "ttyUSB0 - FT232R USB UART");
    EXPECT_EQ(box.itemData(2, Qt::DisplayRole), "Simulated controller");
    box.setCurrentIndex(1);
    EXPECT_EQ(box.currentText(), "ttyS0");
    box.setCurrentIndex(0);
    EXPECT_EQ(box.currentText(), "ttyUSB0"); // without the description
}

TEST_F(Port_Dialog_Test, ThePortListFollowsTheAdaptersAndLeavesWhatIsTyped) {
    make();
    at<QComboBox>("CMB_Port").setEditText("/tmp/relay");
    finder.list.erase(finder.list.begin());
    dialog->refreshPorts();
    EXPECT_EQ(at<QComboBox>("CMB_Port").count(), 2);
    EXPECT_EQ(at<QComboBox>("CMB_Port").currentText(), "/tmp/relay");
    EXPECT_EQ(at<QLabel>("LBL_Port").text(), "Not in the list of ports now.");
}

TEST_F(Port_Dialog_Test, SaysWhichTimingsAreInForce) {
    make();
    EXPECT_EQ(at<QLabel>("LBL_Timings").text(),
              "Time-out in force: 600 ms, from the template; the 750 ms here don't count.\n"
              "Pause between requests: 20 ms, from the template.");
    timings = {};
    make();
    at<QSpinBox>("NUM_TimeOut").setValue(300);
    EXPECT_EQ(at<QLabel>("LBL_Timings").text(), "Time-out in force: 300 ms, from this dialog.\n"
                                                "Pause between requests: none beyond what Modbus asks for.");
}

TEST_F(Port_Dialog_Test, TheTestAsksWithWhatIsEnteredAndTellsTheVerdict) {
    make();
    at<QCheckBox>("CHK_Echo").setChecked(false);
    at<QSpinBox>("NUM_Slave").setValue(7);
    Toy_Slave slave(7);
    port.onWrite = [&](const Byte_Array& request) {
        clock.in(20 * microsPerMs, [this, answer = slave.answer(request)] { port.deliver(answer); });
    };
    press("BOT_Test");
    EXPECT_EQ(verdict(), "Testing...");
    EXPECT_EQ(at<QPushButton>("BOT_Test").text(), "S&top");
    EXPECT_EQ(told, "lent ");
    clock.runFor(microsPerSecond);
    EXPECT_EQ(verdict(), "Good: Unit 7 answered after 20 ms.");
    EXPECT_EQ(at<QPushButton>("BOT_Test").text(), "&Test");
    EXPECT_EQ(told, "lent back ");
    ASSERT_EQ(port.written.size(), 1U);
    EXPECT_EQ(port.written[0].at(3), 99); // register 40100 on the wire
    EXPECT_EQ(port.settingsSeen.slave, 7);
}

TEST_F(Port_Dialog_Test, TheTestUsesTheTimeOutInForce) {
    make();
    press("BOT_Test");
    clock.runFor(5 * microsPerSecond);
    EXPECT_TRUE(verdict().startsWith("Silence: nothing came back within 600 ms.\n1. "))
        << verdict().toStdString();
}

TEST_F(Port_Dialog_Test, TheTestCanBeStopped) {
    make();
    press("BOT_Test");
    EXPECT_TRUE(port.isOpen());
    press("BOT_Test");
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(verdict(), "The test was stopped.");
    EXPECT_EQ(told, "lent back ");
    clock.runFor(5 * microsPerSecond);
    EXPECT_EQ(verdict(), "The test was stopped.");
}

TEST_F(Port_Dialog_Test, ClosingTheDialogEndsTheTest) {
    make();
    press("BOT_Test");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(told, "lent back ");
    press("BOT_Test");
    dialog.reset();
    EXPECT_FALSE(port.isOpen());
}

TEST_F(Port_Dialog_Test, LooksFurtherWhereOneReadCannotTell) {
    chosen.adapterEchoes = false;
    chosen.slave = 9;
    timings = {};
    make();
    Toy_Slave slave(7); // not the number that is entered
    port.onWrite = [&](const Byte_Array& request) {
        clock.in(20 * microsPerMs, [this, answer = slave.answer(request)] { port.deliver(answer); });
    };
    press("BOT_Test");
    clock.runFor(microsPerSecond);
    EXPECT_TRUE(verdict().startsWith("Silence: nothing came back within 750 ms."));
    EXPECT_EQ(at<QPushButton>("BOT_Test").text(), "S&top");
    EXPECT_EQ(diagnosis(), "Looking further: listening");
    clock.runFor(2 * microsPerSecond);
    EXPECT_EQ(diagnosis(), "Looking further: 19200,e,7,2, unit 9, 750 ms");
    clock.runFor(60 * microsPerSecond);
    EXPECT_TRUE(QTest::qWaitFor([this] { return at<QPushButton>("BOT_Test").text() == "&Test"; }));
    EXPECT_TRUE(diagnosis().startsWith(
        "Unit 9 doesn't answer, but unit 7 does: if that is the controller, set its number "
        "as the slave number; else check the supply and the wires of unit 9.\n\n"
        "Port ttyUSB0, 19200,e,7,2, unit 9, time-out 750 ms\n"
        "19200,e,7,2, unit 9, 750 ms: silence\n"))
        << diagnosis().toStdString();
    EXPECT_EQ(told, "lent back lent back ");
    EXPECT_FALSE(port.isOpen());
    press("BOT_Copy");
    EXPECT_TRUE(QApplication::clipboard()->text().contains("but unit 7 does"));
    for (const Byte_Array& frame : port.written)
        EXPECT_EQ(frame.at(1), 3);
}

TEST_F(Port_Dialog_Test, TheFurtherReadsCanBeStopped) {
    timings = {};
    make();
    press("BOT_Test");
    clock.runFor(3 * microsPerSecond);
    press("BOT_Test");
    EXPECT_EQ(diagnosis(), "The further reads were stopped.");
    EXPECT_EQ(told, "lent back lent back ");
    EXPECT_FALSE(port.isOpen());
}

TEST_F(Port_Dialog_Test, ProposesATimeOutAndEntersItAtOneClick) {
    chosen.adapterEchoes = false;
    chosen.slave = 7;
    timings = {};
    make();
    Toy_Slave slave(7);
    port.onWrite = [&](const Byte_Array& request) {
        clock.in(20 * microsPerMs, [this, answer = slave.answer(request)] { port.deliver(answer); });
    };
    EXPECT_FALSE(at<QPushButton>("BOT_TimeOut").isEnabled());
    press("BOT_Times");
    clock.runFor(60 * microsPerSecond);
    EXPECT_TRUE(QTest::qWaitFor([this] { return at<QPushButton>("BOT_TimeOut").isEnabled(); }));
    EXPECT_EQ(at<QPushButton>("BOT_TimeOut").text(), "Ta&ke 100 ms");
    press("BOT_TimeOut");
    EXPECT_EQ(at<QSpinBox>("NUM_TimeOut").value(), 100);
    press("BOT_Test"); // which hears the port again
    clock.runFor(microsPerSecond);
    EXPECT_EQ(verdict(), "Good: Unit 7 answered after 20 ms.");
}

/// The line may have been another one.
TEST_F(Port_Dialog_Test, AnswerTimesTakeTheResultOfAnEarlierTestAway) {
    chosen.adapterEchoes = false;
    chosen.slave = 7;
    make();
    port.onOpen = [](const std::string&) {
        return Port_Opening{false, "No such port: plug the adapter in."};
    };
    press("BOT_Test");
    clock.runFor(microsPerSecond);
    EXPECT_NE(verdict(), "");
    port.onOpen = {};
    Toy_Slave slave(7);
    port.onWrite = [&](const Byte_Array& request) {
        clock.in(20 * microsPerMs, [this, answer = slave.answer(request)] { port.deliver(answer); });
    };
    press("BOT_Times");
    EXPECT_EQ(verdict(), "");
    clock.runFor(60 * microsPerSecond);
    EXPECT_TRUE(QTest::qWaitFor([this] { return at<QPushButton>("BOT_Copy").isEnabled(); }));
    press("BOT_Copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text().left(5), "Port ");
}

TEST_F(Port_Dialog_Test, ProposesNoTimeOutWhereTheTemplatesIsInForce) {
    chosen.adapterEchoes = false;
    chosen.slave = 7;
    make();
    Toy_Slave slave(7);
    port.onWrite = [&](const Byte_Array& request) {
        clock.in(20 * microsPerMs, [this, answer = slave.answer(request)] { port.deliver(answer); });
    };
    press("BOT_Times");
    clock.runFor(60 * microsPerSecond);
    EXPECT_TRUE(QTest::qWaitFor([this] { return at<QPushButton>("BOT_Copy").isEnabled(); }));
    EXPECT_TRUE(diagnosis().contains("The template's time-out of 600 ms is in force."));
    EXPECT_FALSE(at<QPushButton>("BOT_TimeOut").isEnabled());
}

TEST_F(Port_Dialog_Test, GreysWhatMeansNothingAtThePort) {
    make();
    const auto enabled = [this] {
        return std::vector<bool>{at<QComboBox>("CMB_Baud").isEnabled(),
                                 at<QComboBox>("CMB_StopBits").isEnabled(),
                                 at<QComboBox>("CMB_Rts").isEnabled(), at<QSpinBox>("NUM_Delay").isEnabled(),
                                 at<QCheckBox>("CHK_Echo").isEnabled()};
    };
    at<QComboBox>("CMB_Port").setEditText("tcp:gate:502");
    EXPECT_EQ(enabled(), std::vector<bool>(5, false));
    at<QComboBox>("CMB_Port").setEditText("rtu+tcp:gate:4001");
    EXPECT_EQ(enabled(), (std::vector<bool>{true, true, false, false, true}));
    at<QComboBox>("CMB_Port").setEditText("ttyS0");
    EXPECT_EQ(enabled(), std::vector<bool>(5, true));
}

TEST_F(Port_Dialog_Test, APortOnANetworkIsEnteredByAForm) {
    make();
    QTimer::singleShot(0, [] {
        auto* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(doubles::controlFaults(*form), std::vector<std::string>{});
        EXPECT_EQ(doubles::keyClashes(*form), std::vector<std::string>{});
        form->findChild<QComboBox*>("CMB_Protocol")->setCurrentIndex(2);
        QTest::keyClick(form, Qt::Key_Return);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(
            form->findChild<QLabel*>("LBL_Fault")->text(),
            "The port rfc2217::502 names no host. Write host and port, as in rfc2217:192.168.0.7:2217.");
        QTest::keyClicks(form->findChild<QLineEdit*>("EDT_Host"), "gate");
        form->findChild<QSpinBox*>("NUM_Port")->setValue(2217);
        QTest::keyClick(form, Qt::Key_Return);
    });
    press("BOT_Network");
    EXPECT_EQ(at<QComboBox>("CMB_Port").currentText(), "rfc2217:gate:2217");
}

TEST_F(Port_Dialog_Test, EnterInAnyFieldAcceptsWhatStandsThere) {
    for (const char* port : {"Simulated controller", "/tmp/relay", "ttyS0"}) {
        chosen.port = port;
        make();
        QApplication::setActiveWindow(dialog.get());
        QTest::keyClick(at<QComboBox>("CMB_Port").lineEdit(), Qt::Key_Return);
        EXPECT_EQ(dialog->result(), QDialog::Accepted);
        EXPECT_EQ(dialog->settings().port, port);
        make();
        QTest::keyClick(&at<QSpinBox>("NUM_Slave"), Qt::Key_Return);
        EXPECT_EQ(dialog->result(), QDialog::Accepted);
        EXPECT_EQ(dialog->settings().port, port);
        make();
        QTest::keyClick(&at<QPushButton>("BOT_Test"), Qt::Key_Return);
        EXPECT_EQ(dialog->result(), QDialog::Accepted);
        EXPECT_EQ(dialog->settings().port, port);
    }
}

TEST_F(Port_Dialog_Test, WithoutAPortTheTestSaysSo) {
    chosen.port.clear();
    make();
    press("BOT_Test");
    EXPECT_EQ(verdict(), "Choose a port, or type its name or path.");
    EXPECT_EQ(told, "");
}

TEST_F(Port_Dialog_Test, EveryControlHasItsNameAndWords) {
    make();
    for (const char* name :
         {"CMB_Port", "NUM_Slave", "CMB_Baud", "CMB_Parity", "CMB_DataBits", "CMB_StopBits", "NUM_Retries",
          "NUM_TimeOut", "CMB_Rts", "NUM_Delay", "TXT_Verdict"}) {
        EXPECT_EQ(at<QWidget>(name).accessibleDescription(), name);
        EXPECT_FALSE(at<QWidget>(name).accessibleName().isEmpty()) << name;
    }
    EXPECT_EQ(at<QSpinBox>("NUM_Slave").accessibleName(), "Slave number:");
    EXPECT_TRUE(dialog->accessibleName().isEmpty());
}

} // namespace
} // namespace zorvane::ui
