// SPDX-License-Identifier: MIT
// The link's windows on the real link, with the simulated controller at the far end.
#include "comm/modbus_control/qt/qt_link.h"
#include "comm/modbus_control/qt/qt_simulator.h"
#include "ui/line/line_windows.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace zorvane::ui {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Told_Messages final : public Asker {
  public:
    int Msgb_Show(const std::string& prompt, int, const std::string&) override {
        told.push_back(prompt);
        return Msgb_Code_Ok;
    }
    std::vector<std::string> told;
};

struct Line_Windows_Test : ::testing::Test {
    Line_Windows_Test() {
        std::ofstream(ztp)
            << "[PORT_CONFIGURATION]\r\nHOLDINGREGISTERS=400\r\nHOLDINGREGISTERSBLOCK_1=100-103\r\n"
               "HOLDINGREQUESTBLOCK_1=ALWAYS\r\n";
        assembly.link().setTrafficListener(&windows.traffic());
    }
    ~Line_Windows_Test() override { stopController(); }

    void startController(const QStringList& options) {
        controller.start(QStringLiteral(ZORVANE_SIM),
                         QStringList{"--template", QString::fromStdString(ztp), "--pty", pty} + options);
        while (!controller.canReadLine())
            ASSERT_TRUE(controller.waitForReadyRead(10000))
                << controller.readAllStandardError().toStdString();
    }
    void stopController() {
        if (controller.state() == QProcess::NotRunning) return;
        controller.terminate();
        controller.waitForFinished();
    }

    template <class Widget> Widget& at(const char* name) {
        auto* widget = windows.portDialog()->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    void openDialog(const QString& port, int slave = 1) {
        windows.showPortSettings(assembly.link(), false);
        at<QComboBox>("CMB_Port").setEditText(port);
        at<QSpinBox>("NUM_Slave").setValue(slave);
        at<QSpinBox>("NUM_TimeOut").setValue(200);
    }
    std::string verdict() { return at<QPlainTextEdit>("TXT_Verdict").toPlainText().toStdString(); }
    std::string test() {
        at<QPushButton>("BOT_Test").click();
        EXPECT_TRUE(QTest::qWaitFor([this] { return verdict() != "Testing..."; }, 10000));
        return verdict();
    }
    /// What the test says of a controller with that fault.
    std::string testWith(const QString& fault, int slave = 1) {
        startController({"--fault", fault});
        openDialog(pty, slave);
        std::string text = test();
        delete windows.portDialog();
        stopController();
        return text;
    }

    QTemporaryDir folder;
    std::string ztp = folder.filePath("ABC.ZTP").toStdString();
    QString pty = folder.filePath("line");
    QProcess controller;
    Told_Messages asker;
    std::vector<Port_Settings> kept;
    Qt_Simulator simulator{[this] { return ztp; }, ZORVANE_SIM};
    Line_Windows windows{nullptr,
                         simulator,
                         {[this](const Port_Settings& settings) { kept.push_back(settings); },
                          [] { return 100; }, [](const QString&, int, const QString&) { return 1; }}};
    Qt_Link assembly{{}, asker, &windows, &simulator};
    modbus_control& link = assembly.link();
};

TEST_F(Line_Windows_Test, TheTestNamesEachFaultOfTheLine) {
    EXPECT_THAT(testWith("late=1:1"), StartsWith("Good: Unit 1 answered after "));
    EXPECT_THAT(testWith("exception=2"),
                StartsWith("Unit 1 is there, but it refused: Illegal data address (exception 2)."));
    EXPECT_THAT(testWith("busy=9"), StartsWith("Unit 1 is there, but it refused: BUSY."));
    EXPECT_THAT(testWith("silent"), StartsWith("Silence: nothing came back within 200 ms."));
    EXPECT_THAT(testWith("crc"),
                StartsWith("Something came back that is no whole answer: wrong CRC, 7 bytes."));
    EXPECT_THAT(testWith("truncate=3"),
                StartsWith("Something came back that is no whole answer: answer cut short, 3 bytes."));
    EXPECT_THAT(testWith("noise=4"), HasSubstr("\n4 bytes of noise came before the answer:"));
    EXPECT_THAT(testWith("echo"), HasSubstr("\nThe adapter repeats what is sent: tick \"Adapter echoes\"."));
    EXPECT_THAT(testWith("wrong-unit"),
                StartsWith("A whole answer came back, but not the one asked for: answer of another unit."));
    EXPECT_THAT(testWith("unplug"),
                StartsWith("The port " + pty.toStdString() + " went away during the test."));
    EXPECT_THAT(testWith("late=1:1", 2), StartsWith("Silence: ")); // no such unit
}

TEST_F(Line_Windows_Test, PortsThatCantBeOpenedAreNamedWithWhatToDo) {
    openDialog(folder.filePath("gone"));
    EXPECT_EQ(test(), "The port " + folder.filePath("gone").toStdString() +
                          " can't be opened.\nNo such port: plug the adapter in, or choose another port.");
    at<QComboBox>("CMB_Port").setEditText(QString::fromStdString(ztp));
    EXPECT_THAT(test(), HasSubstr("Not a serial port: choose another port."));
}

TEST_F(Line_Windows_Test, TheWindowServesEventsDuringATestAndCanStopIt) {
    startController({"--fault", "silent"});
    openDialog(pty);
    at<QSpinBox>("NUM_TimeOut").setValue(60000);
    at<QPushButton>("BOT_Test").click();
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, &ticker, [&ticks] { ++ticks; });
    ticker.start(5);
    EXPECT_TRUE(QTest::qWaitFor([&ticks] { return ticks > 5; }));
    EXPECT_EQ(verdict(), "Testing...");
    at<QPushButton>("BOT_Test").click();
    EXPECT_EQ(verdict(), "The test was stopped.");
}

TEST_F(Line_Windows_Test, TheLinkLendsItsPortToTheTestAndGoesOnAfterwards) {
    startController({});
    openDialog(pty);
    at<QPushButton>("BOT_Ok").click();
    std::int32_t slave = 0;
    link.AddScanBlock(100, 103, false, "ALWAYS", slave);
    link.SetScanMode("ALWAYS");
    link.PrepareScan();
    link.StartScan();
    EXPECT_TRUE(QTest::qWaitFor([this] { return link.RxCount() > 0; }));
    openDialog(pty);
    EXPECT_THAT(test(), StartsWith("Good: "));
    const std::int32_t before = link.RxCount();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        (void)watchedScanBlock(link);
        return link.RxCount() > before + 2;
    }));
    EXPECT_TRUE(asker.told.empty());
}

TEST_F(Line_Windows_Test, AcceptedSettingsReachTheLinkAndAreKept) {
    openDialog("/tmp/relay", 12);
    at<QPushButton>("BOT_Ok").click();
    EXPECT_EQ(link.SlaveNumber(), "12");
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].port, "/tmp/relay");
    QTest::qWait(0);
    openDialog("/tmp/other", 13);
    at<QPushButton>("BOT_Cancel").click();
    EXPECT_EQ(link.SlaveNumber(), "12");
    EXPECT_EQ(kept.size(), 1U);
}

TEST_F(Line_Windows_Test, TheModalDialogComesBackWhenItIsClosed) {
    QTimer::singleShot(0, [this] {
        ASSERT_NE(windows.portDialog(), nullptr);
        EXPECT_TRUE(windows.portDialog()->isModal());
        windows.portDialog()->reject();
    });
    link.ShowPortSettings(true);
    EXPECT_TRUE(kept.empty());
}

TEST_F(Line_Windows_Test, TheSimulatedControllerAnswersTheTestAndTheLink) {
    openDialog("Simulated controller", 7);
    EXPECT_THAT(test(), StartsWith("Good: Unit 7 answered after "));
    at<QPushButton>("BOT_Ok").click();
    const std::int64_t process = simulator.processId();
    link.PrepareScan();
    link.PresetSingleRegister(0, 100, 1234);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !link.WriteBusy(); }));
    EXPECT_FALSE(link.WriteFailed());
    link.ClosePort();
    EXPECT_EQ(simulator.processId(), process); // and keeps what was written
    openDialog("/tmp/relay");
    at<QPushButton>("BOT_Ok").click();
    EXPECT_EQ(simulator.processId(), 0);
}

TEST_F(Line_Windows_Test, ACancelledTryOfTheSimulatedControllerLeavesNothing) {
    openDialog("Simulated controller");
    EXPECT_THAT(test(), StartsWith("Good: "));
    EXPECT_GT(simulator.processId(), 0);
    at<QPushButton>("BOT_Cancel").click();
    EXPECT_EQ(simulator.processId(), 0);
}

TEST_F(Line_Windows_Test, TheMonitorShowsTheTrafficOfTheLink) {
    startController({"--fault", "crc:1"});
    openDialog(pty);
    at<QPushButton>("BOT_Ok").click();
    EXPECT_FALSE(link.MonitorLoaded());
    link.ShowMonitor(1500, 1500, 12000, 6000);
    link.ActivateMonitor();
    EXPECT_TRUE(link.MonitorLoaded());
    EXPECT_TRUE(link.MonitorVisible());
    link.PrepareScan();
    link.PresetSingleRegister(0, 100, 1234);
    EXPECT_TRUE(QTest::qWaitFor([this] { return windows.monitor()->model().rowCount() >= 3; }));
    const QString text = windows.monitor()->text();
    EXPECT_TRUE(text.contains("The port is open."));
    EXPECT_TRUE(text.contains("\t1\t6 write\t100\t100\t1234\twrong CRC\tTx: 01 06 00 64 04 D2"));
    EXPECT_TRUE(text.contains("\t1\t6 write\t100\t100\t1234\tgood\tTx: 01 06 00 64 04 D2"))
        << text.toStdString();
}

TEST_F(Line_Windows_Test, TheMonitorsLife) {
    link.ShowMonitor(1500, 3000, 12000, 6000);
    windows.monitor()->close();
    EXPECT_TRUE(link.MonitorLoaded());
    EXPECT_FALSE(link.MonitorVisible());
    link.ActivateMonitor();
    EXPECT_TRUE(link.MonitorVisible());
    link.HideMonitor();
    EXPECT_FALSE(link.MonitorVisible());
    link.RestoreMonitor();
    EXPECT_TRUE(link.MonitorVisible());
    windows.monitor()->close();
    link.HideMonitor();
    link.RestoreMonitor();
    EXPECT_FALSE(link.MonitorVisible()); // it was closed before
    link.UnloadMonitor();
    EXPECT_FALSE(link.MonitorLoaded());
    EXPECT_EQ(link.MonitorTop(), 3000); // still known, to be kept
    EXPECT_EQ(link.MonitorWidth(), 12000);
}

} // namespace
} // namespace zorvane::ui
