// SPDX-License-Identifier: MIT
// The serial port and the link on a real pseudo-terminal.
#include "comm/modbus_control/qt/qt_link.h"
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "comm/modbus_control/qt/qt_serial_port.h"
#include "comm/modbus_control/qt/serial_line_system.h"
#include "comm/modbus_control/qt/testing/serve_events.h"
#include "comm/modbus_control/testing/byte_port_suite.h"
#include "comm/modbus_control/testing/link_rig.h"
#include "comm/modbus_control/testing/pty_line_linux.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <filesystem>
#include <memory>
#include <random>

namespace zorvane {
namespace {

using testing::Pty_Line;
using testing::serveFor;
using testing::serveUntil;
using testing::Toy_Slave;

class Pty_Bench {
  public:
    Byte_Port& port() { return port_; }
    [[nodiscard]] std::string name() const { return line_.path(); }
    void farSend(const Byte_Array& bytes) { line_.send(bytes); }
    [[nodiscard]] Byte_Array farReceived(std::size_t count) const { return line_.receive(count); }
    void hangUp() { line_.unplug(); }
    void comeBack() { line_.plug(); }
    static void idle() { serveFor(20); }
    template <class Condition> static bool runUntil(Condition condition) { return serveUntil(condition); }

  private:
    Pty_Line line_;
    Qt_Serial_Port port_;
};

class Quiet_Asker final : public Asker {
  public:
    int Msgb_Show(const std::string& prompt, int, const std::string&) override {
        messages.push_back(prompt);
        return Msgb_Code_Ok;
    }
    std::vector<std::string> messages;
};

/// The link at one end of a pseudo-terminal, a slave at the other, both in this thread.
class QtLink : public ::testing::Test {
  protected:
    QtLink() {
        Port_Settings settings;
        settings.port = line.path();
        settings.line.baud = 115200;
        settings.timeOutMs = 200;
        assembly = std::make_unique<Qt_Link>(settings, asker);
        watch();
        std::int32_t unit = 0;
        link().ClearBlocks();
        link().AddScanBlock(1, 10, false, "NONE", unit);
        link().AddScanBlock(100, 400, false, "NONE", unit);
        link().SetScanMode("NONE");
    }

    Modbus_Link& link() { return assembly->link(); }

    void watch() {
        notifier = std::make_unique<QSocketNotifier>(line.farEnd(), QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [this] {
            const Byte_Array request = line.receive(1);
            if (request.size() >= 8) line.send(slave.answer(request));
        });
    }
    void unplug() {
        notifier.reset();
        line.unplug();
    }
    void plug() {
        line.plug();
        watch();
    }

    Pty_Line line;
    Toy_Slave slave;
    Quiet_Asker asker;
    std::unique_ptr<QSocketNotifier> notifier;
    std::unique_ptr<Qt_Link> assembly;
};

TEST(QtSerialPort, TellsInOnePieceWhatCameInBeforeItsTime) {
    Pty_Bench bench;
    testing::Port_Ear ear;
    bench.port().setListener(&ear);
    ASSERT_TRUE(bench.port().open(bench.name(), Port_Settings{}).opened);
    int pieces = 0;
    ear.onBytes = [&pieces] { ++pieces; };
    const Micros until = Qt_Link_Clock().now() + 300 * microsPerMs;
    bench.port().tellNotBefore(until);
    for (std::uint8_t byte = 0; byte < 20; ++byte) {
        bench.farSend({byte});
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(pieces, 0);
    EXPECT_TRUE(serveUntil([&] { return pieces > 0; }));
    EXPECT_GE(Qt_Link_Clock().now(), until);
    EXPECT_EQ(pieces, 1);
    EXPECT_EQ(ear.heard.size(), 20U);
    bench.port().setListener(nullptr);
}

TEST_F(QtLink, ReadsAndWritesOverAPseudoTerminal) {
    slave.registers[5] = 555;
    slave.registers[400] = 4000;
    link().PrepareScan();
    link().StartScan();
    ASSERT_TRUE(serveUntil([&] { return link().RegisterValue(0, 400) == 4000; }));
    EXPECT_EQ(link().RegisterValue(0, 5), 555);
    link().PresetSingleRegister(0, 5, -7);
    link().PresetMultipleRegisters(0, 6, {1, 2, 3});
    ASSERT_TRUE(serveUntil([&] { return !link().WriteBusy(); }));
    EXPECT_FALSE(link().WriteFailed());
    EXPECT_EQ(slave.registers[5], 65529);
    EXPECT_EQ(slave.registers[8], 3);
    EXPECT_EQ(link().RegisterValue(0, 8), 3);
    EXPECT_TRUE(asker.messages.empty());
    link().StopScan();
    link().ClosePort();
    EXPECT_FALSE(link().portOpen());
}

TEST_F(QtLink, ALineThatGoesAndComesBackIsFoundAgain) {
    link().PrepareScan();
    link().StartScan();
    ASSERT_TRUE(serveUntil([&] { return link().RxCount() > 2; }));
    unplug();
    ASSERT_TRUE(serveUntil([&] { return link().CommLost(); }));
    EXPECT_FALSE(link().portOpen());
    slave.registers[5] = 99;
    plug();
    ASSERT_TRUE(serveUntil([&] { return link().RegisterValue(0, 5) == 99; }));
    EXPECT_FALSE(link().CommLost());
}

TEST_F(QtLink, ALineThatGoesIsToldInPlainWords) {
    testing::Traffic_Log log;
    link().setTrafficListener(&log);
    link().PrepareScan();
    unplug();
    ASSERT_TRUE(serveUntil([&] { return log.notes.size() > 1; }));
    EXPECT_EQ(log.notes[1], "The port is lost. The adapter was unplugged, or the line hung up");
    link().setTrafficListener(nullptr);
}

/// The event loop hears of bytes and of the time for the next request at once, and the request takes the
/// bytes before they are told.
TEST_F(QtLink, StrayBytesAtAnyMomentLoseNoLine) {
    testing::Traffic_Log log;
    link().setTrafficListener(&log);
    std::mt19937 random(14);
    QTimer noise;
    noise.setTimerType(Qt::PreciseTimer);
    QObject::connect(&noise, &QTimer::timeout, &noise, [&] {
        line.send(Byte_Array(1 + random() % 5, 0xA5));
        noise.start(static_cast<int>(random() % 12));
        const Micros busyUntil = Qt_Link_Clock().now() + static_cast<Micros>(random() % 4) * microsPerMs;
        while (Qt_Link_Clock().now() < busyUntil) {
        }
    });
    noise.start(1);
    link().PrepareScan();
    link().StartScan();
    while (log.exchanges.size() < 1000) {
        const std::size_t before = log.exchanges.size();
        ASSERT_TRUE(serveUntil([&] { return log.exchanges.size() > before; }));
    }
    link().StopScan();
    link().ClosePort();
    EXPECT_EQ(log.notes, std::vector<std::string>{"The port is open."});
    EXPECT_FALSE(log.strays.empty());
    link().setTrafficListener(nullptr);
}

TEST_F(QtLink, ALineThatIsNotThereIsTold) {
    unplug();
    link().PrepareScan();
    ASSERT_EQ(asker.messages.size(), 1U);
    EXPECT_EQ(asker.messages[0], "The serial port " + line.path() +
                                     " can't be opened.\n\n"
                                     "No such port: plug the adapter in, or choose another port.");
}

TEST(QtSerialPort, APseudoTerminalHasNoRtsAndSaysSo) {
    const Pty_Line line;
    Qt_Serial_Port port;
    Port_Settings settings;
    settings.rts = Rts_Mode::HighOnSend;
    EXPECT_EQ(port.open(line.path(), settings).warnings,
              std::vector<std::string>{"The port has no RTS line: sending goes on without it."});
    port.close();
    settings.rts = Rts_Mode::KernelRs485;
    EXPECT_EQ(port.open(line.path(), settings).warnings,
              std::vector<std::string>{"The port's driver has no RS-485 mode: sending goes on without it."});
    EXPECT_TRUE(port.write(Byte_Array{1, 2}));
    EXPECT_EQ(line.receive(2), (Byte_Array{1, 2}));
}

TEST(QtSerialPort, AFileThatIsNoPortIsToldApart) {
    const std::string path = (std::filesystem::temp_directory_path() / "zorvane-no-port").string();
    ::close(::open(path.c_str(), O_CREAT | O_RDWR, 0600));
    Qt_Serial_Port port;
    const Port_Opening opening = port.open(path, {});
    EXPECT_FALSE(opening.opened);
    EXPECT_EQ(opening.reason, "Not a serial port: choose another port.");
    std::filesystem::remove(path);
}

TEST(SerialLineSystem, ReasonsInPlainWords) {
    EXPECT_EQ(whyNotOpened("/nowhere", false, "whatever"),
              "No such port: plug the adapter in, or choose another port.");
    EXPECT_EQ(whyNotOpened("/dev/null", false, "Device or resource busy"),
              "Busy: another program has the port open. Close that program and try again.");
    EXPECT_EQ(whyNotOpened("/dev/null", false, "Odd"), "Odd: check the adapter, or choose another port.");
    const Pty_Line line;
    EXPECT_TRUE(isPseudoTerminal(line.path()));
    EXPECT_FALSE(isPseudoTerminal("/dev/null"));
    EXPECT_FALSE(isPseudoTerminal("/nowhere"));
}

TEST(SerialLineSystem, ALineStandsUntilItHangsUpOrItsNameIsGone) {
    Pty_Line line;
    const int near = ::open(line.path().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(near, 0);
    EXPECT_TRUE(lineStands(near, line.path()));
    EXPECT_FALSE(lineStands(near, line.path() + "-that-is-gone"));
    line.send(Byte_Array{1, '\n'});
    EXPECT_TRUE(lineStands(near, line.path()));
    const std::string elsewhere = line.path() + "-again";
    std::filesystem::create_symlink(std::filesystem::canonical(line.path()), elsewhere);
    line.unplug();
    EXPECT_FALSE(lineStands(near, elsewhere));
    ::close(near);
}

/// Gives up the rights of root for a while, as far as there are any.
class Without_Root {
  public:
    Without_Root() : before_(::geteuid()) { done_ = before_ != 0 || ::seteuid(65534) == 0; }
    Without_Root(const Without_Root&) = delete;
    Without_Root& operator=(const Without_Root&) = delete;
    ~Without_Root() {
        if (::geteuid() != before_ && ::seteuid(before_) != 0) std::abort();
    }
    [[nodiscard]] bool done() const { return done_; }

  private:
    uid_t before_;
    bool done_ = false;
};

TEST(QtSerialPort, APortOfOthersNeedsThePermission) {
    const Pty_Line line;
    std::filesystem::permissions(line.path(), std::filesystem::perms::none);
    std::filesystem::permissions(std::filesystem::path(line.path()).parent_path(),
                                 std::filesystem::perms(0755));
    Qt_Serial_Port port;
    const Without_Root user;
    ASSERT_TRUE(user.done());
    const Port_Opening opening = port.open(line.path(), {});
    EXPECT_FALSE(opening.opened);
    EXPECT_EQ(opening.reason, "Permission denied: add your user to the group dialout and log in again.");
}

TEST(QtLinkClock, AnAlarmRingsAtItsTimeAndNotBefore) {
    Qt_Link_Clock clock;
    Micros rungAt = 0;
    const auto alarm = clock.makeAlarm([&] { rungAt = clock.now(); });
    const Micros when = clock.now() + 5300;
    alarm->armAt(when);
    ASSERT_TRUE(serveUntil([&] { return rungAt != 0; }));
    EXPECT_GE(rungAt, when);
}

TEST(QtLinkClock, APastTimeRingsFromTheEventLoop) {
    Qt_Link_Clock clock;
    int rung = 0;
    const auto alarm = clock.makeAlarm([&] { ++rung; });
    alarm->armAt(clock.now() - 1000);
    EXPECT_EQ(rung, 0);
    EXPECT_TRUE(serveUntil([&] { return rung == 1; }));
    alarm->armAt(0);
    EXPECT_TRUE(serveUntil([&] { return rung == 2; }));
}

TEST(QtLinkClock, AnAlarmCanBeMovedAndStopped) {
    Qt_Link_Clock clock;
    Micros rungAt = 0;
    const auto alarm = clock.makeAlarm([&] { rungAt = clock.now(); });
    const Micros start = clock.now();
    alarm->armAt(start + 1000);
    alarm->armAt(start + 20000);
    ASSERT_TRUE(serveUntil([&] { return rungAt != 0; }));
    EXPECT_GE(rungAt, start + 20000);
    rungAt = 0;
    alarm->armAt(clock.now() + 1000);
    alarm->disarm();
    serveFor(20);
    EXPECT_EQ(rungAt, 0);
}

TEST(QtPortFinder, ListsWithoutPseudoTerminals) {
    const Pty_Line line;
    Qt_Port_Finder finder;
    for (const Port_Entry& entry : finder.ports()) {
        EXPECT_FALSE(isPseudoTerminal(entry.path));
        EXPECT_FALSE(entry.name.empty());
    }
}

} // namespace

namespace testing {
INSTANTIATE_TYPED_TEST_SUITE_P(PseudoTerminal, Byte_Port_Suite, Pty_Bench);
}
} // namespace zorvane

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
