// SPDX-License-Identifier: MIT
// The simulated controller as a process, and the watch over the ports.
#include "comm/modbus_control/exchange/trial_verdict.h"
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "comm/modbus_control/qt/qt_port_watch.h"
#include "comm/modbus_control/qt/qt_serial_port.h"
#include "comm/modbus_control/qt/qt_simulator.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>

namespace zorvane {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// Serves events until the condition holds; false after ten seconds.
template <class Condition> bool serveUntil(Condition condition) {
    bool late = false;
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, &limit, [&late] { late = true; });
    limit.start(10000);
    while (!condition() && !late)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

bool isThere(const std::string& path) {
    return std::filesystem::exists(std::filesystem::symlink_status(path));
}

struct Simulator_Bench : ::testing::Test {
    Simulator_Bench() : open(writeTemplate("ABC.ZTP", "100-103")) {}

    std::string writeTemplate(const std::string& name, const std::string& block) {
        const std::string path = folder.filePath(QString::fromStdString(name)).toStdString();
        std::ofstream(path) << "[PORT_CONFIGURATION]\r\nHOLDINGREGISTERS=400\r\nHOLDINGREGISTERSBLOCK_1="
                            << block << "\r\nHOLDINGREQUESTBLOCK_1=NONE\r\n";
        return path;
    }

    /// One exchange through the simulated port.
    Trial_Verdict test(std::int32_t slave, std::int32_t address = 100) {
        Trial_Request request;
        request.settings.port = simulatedPortName;
        request.settings.slave = slave;
        request.timeOutMs = 2000;
        request.firstRegister = address;
        request.wireAddress = static_cast<std::uint16_t>(address);
        std::optional<Trial_Verdict> verdict;
        exchange.start(request, [&](const Trial_Report& report) { verdict = trialVerdict(request, report); });
        EXPECT_TRUE(serveUntil([&] { return verdict.has_value(); }));
        return verdict.value_or(Trial_Verdict{});
    }

    QTemporaryDir folder;
    std::string open;
    Qt_Simulator simulator{[this] { return open; }, ZORVANE_SIM};
    Qt_Serial_Port serial;
    Simulated_Port port{serial, simulator};
    Qt_Link_Clock clock;
    Trial_Exchange exchange{port, clock};
};

TEST_F(Simulator_Bench, AnswersUnderItsSlaveNumber) {
    EXPECT_THAT(verdictText(test(12)), StartsWith("Good: Unit 12 answered after "));
    EXPECT_GT(simulator.processId(), 0);
}

TEST_F(Simulator_Bench, GoesOnWhileTemplateAndSlaveStayTheSame) {
    test(1);
    const std::int64_t first = simulator.processId();
    test(1);
    EXPECT_EQ(simulator.processId(), first);
    EXPECT_EQ(test(2).kind, Verdict_Kind::Good);
    EXPECT_NE(simulator.processId(), first);
    EXPECT_NE(::kill(static_cast<pid_t>(first), 0), 0); // gone, and no zombie of ours
}

TEST_F(Simulator_Bench, FollowsTheTemplate) {
    EXPECT_EQ(test(1, 100).kind, Verdict_Kind::Good);
    EXPECT_EQ(test(1, 250).kind, Verdict_Kind::Exception);
    open = writeTemplate("OTHER.ZTP", "250-259");
    EXPECT_EQ(test(1, 250).kind, Verdict_Kind::Good);
    EXPECT_EQ(test(1, 100).kind, Verdict_Kind::Exception);
}

TEST_F(Simulator_Bench, LeavesNothingWhenItIsStopped) {
    const std::string line = simulator.start(1).path;
    const auto process = static_cast<pid_t>(simulator.processId());
    EXPECT_TRUE(isThere(line));
    simulator.stop();
    EXPECT_FALSE(isThere(line));
    EXPECT_NE(::kill(process, 0), 0);
    EXPECT_EQ(simulator.processId(), 0);
}

TEST_F(Simulator_Bench, WithoutADocumentSaysWhatToDo) {
    open.clear();
    EXPECT_EQ(verdictText(test(1)),
              "The port Simulated controller can't be opened.\n"
              "No document is open: open one first, the simulated controller takes its template.");
}

TEST_F(Simulator_Bench, AMissingProgramIsTold) {
    Qt_Simulator none([this] { return open; }, QString());
    EXPECT_EQ(none.start(1).reason, "The program zorvane-sim is missing: install it beside this program.");
    Qt_Simulator gone([this] { return open; }, QStringLiteral("/nowhere/zorvane-sim"));
    EXPECT_THAT(gone.start(1).reason, StartsWith("The simulated controller didn't start: "));
}

TEST_F(Simulator_Bench, ATemplateThatIsGoneIsTold) {
    open = "/nowhere/ABC.ZTP";
    const Simulator::Start started = simulator.start(1);
    EXPECT_EQ(started.path, "");
    EXPECT_THAT(started.reason, StartsWith("The simulated controller didn't start: zorvane-sim: "));
}

TEST_F(Simulator_Bench, EndsWithAProgramThatIsKilled) {
    ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0); // an orphan becomes the test's, which can wait for it
    QProcess host;
    host.start(QStringLiteral(SIMULATOR_HOST), {QStringLiteral(ZORVANE_SIM), QString::fromStdString(open)});
    while (!host.canReadLine())
        ASSERT_TRUE(host.waitForReadyRead(10000));
    const QStringList told = QString::fromLocal8Bit(host.readLine()).trimmed().split(u' ');
    ASSERT_EQ(told.size(), 2);
    EXPECT_TRUE(isThere(told[0].toStdString()));
    ::kill(static_cast<pid_t>(host.processId()), SIGKILL);
    ASSERT_TRUE(host.waitForFinished(10000));
    int status = 0;
    EXPECT_EQ(::waitpid(told[1].toInt(), &status, 0), told[1].toInt());
    EXPECT_FALSE(isThere(told[0].toStdString()));
    ::prctl(PR_SET_CHILD_SUBREAPER, 0);
}

TEST(QtSimulator, IsFoundInTheProgramsOwnFolder) {
    const std::filesystem::path sim(ZORVANE_SIM);
    EXPECT_EQ(Qt_Simulator::programIn(QString::fromStdString(sim.parent_path().string())).toStdString(),
              sim.string());
}

TEST(QtPortWatch, TellsOnceWhatIsPluggedInAndOut) {
    const QTemporaryDir devices;
    int told = 0;
    const Qt_Port_Watch watch([&told] { ++told; }, devices.path());
    const std::filesystem::path port = devices.filePath(QStringLiteral("ttyUSB0")).toStdString();
    std::ofstream(port) << "";
    std::filesystem::permissions(port, std::filesystem::perms::owner_read);
    EXPECT_TRUE(serveUntil([&told] { return told > 0; }));
    EXPECT_EQ(told, 1);
    std::filesystem::remove(port);
    EXPECT_TRUE(serveUntil([&told] { return told > 1; }));
}

} // namespace
} // namespace zorvane

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
