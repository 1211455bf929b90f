// SPDX-License-Identifier: MIT
// Ports on a network and the link over them, on sockets of this computer.
#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/qt/qt_link.h"
#include "comm/modbus_control/qt/testing/serve_events.h"
#include "comm/modbus_control/testing/byte_port_suite.h"
#include "comm/modbus_control/testing/link_rig.h"
#include "comm/modbus_control/testing/rfc2217_toy.h"
#include "comm/modbus_control/testing/tcp_peer_linux.h"

#include <QSocketNotifier>

#include <memory>

namespace zorvane {
namespace {

using testing::Rfc2217_Toy;
using testing::serveFor;
using testing::serveUntil;
using testing::Tcp_Peer;
using testing::Toy_Slave;

std::string refusedAt(const std::string& number) {
    return "Refused: 127.0.0.1 is there, but takes no connection at its port " + number +
           ". Check the port's number, whether the service is switched on there, and whether another program "
           "holds its only connection.";
}

/// A stream of bytes as "tcp:" and "rtu+tcp:" have it.
class Socket_Bench {
  public:
    Byte_Port& port() { return any_.port(); }
    [[nodiscard]] std::string name() const { return "rtu+tcp:" + peer_.hostAndPort(); }
    [[nodiscard]] static std::string absentName() { return "tcp:127.0.0.1:" + absentNumber(); }
    [[nodiscard]] static std::string absentReason() { return refusedAt(absentNumber()); }
    void farSend(const Byte_Array& bytes) {
        peer_.takeNewest();
        peer_.send(bytes);
    }
    [[nodiscard]] Byte_Array farReceived(std::size_t count) { return peer_.receive(count); }
    void hangUp() {
        peer_.takeNewest();
        peer_.unplug();
    }
    void comeBack() { peer_.plug(); }
    static void idle() { serveFor(20); }
    template <class Condition> static bool runUntil(Condition condition) { return serveUntil(condition); }

  private:
    static std::string absentNumber() {
        static const std::string number = std::to_string(Tcp_Peer::unusedPort());
        return number;
    }

    Tcp_Peer peer_;
    Qt_Any_Port any_;
};

/// A server of RFC 2217 at the far end of a socket.
class Rfc2217_Socket_Bench {
  public:
    Rfc2217_Socket_Bench() { listen(); }
    Byte_Port& port() { return any_.port(); }
    [[nodiscard]] std::string name() const { return "rfc2217:" + peer_.hostAndPort(); }
    [[nodiscard]] static std::string absentName() { return "rfc2217:[127.0.0.1]:70000"; }
    [[nodiscard]] static std::string absentReason() {
        return "The port rfc2217:[127.0.0.1]:70000 has no port from 1 to 65535 after the host. Write host "
               "and "
               "port, as in rfc2217:192.168.0.7:2217.";
    }
    void farSend(const Byte_Array& bytes) { peer_.send(telnetData(bytes)); }
    [[nodiscard]] Byte_Array farReceived(std::size_t count) {
        serveUntil([&] { return server_->data.size() >= count; });
        return server_->data;
    }
    void hangUp() {
        notifiers_.clear();
        peer_.unplug();
    }
    void comeBack() {
        peer_.plug();
        listen();
    }
    static void idle() { serveFor(20); }
    template <class Condition> static bool runUntil(Condition condition) { return serveUntil(condition); }

  private:
    void watch(int socket, std::function<void()> readable) {
        notifiers_.push_back(std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read));
        QObject::connect(notifiers_.back().get(), &QSocketNotifier::activated, notifiers_.back().get(),
                         std::move(readable));
    }
    void listen() {
        watch(peer_.listener(), [this] {
            if (notifiers_.size() > 1) notifiers_.pop_back();
            peer_.takeNewest();
            server_ = std::make_unique<Rfc2217_Toy>();
            watch(peer_.client(), [this] { serve(); });
        });
    }
    void serve() {
        const Byte_Array bytes = peer_.receive(1);
        if (bytes.empty()) return notifiers_.back()->setEnabled(false);
        const Byte_Array said = server_->take(bytes);
        if (!said.empty()) peer_.send(said);
    }

    Tcp_Peer peer_;
    std::unique_ptr<Rfc2217_Toy> server_ = std::make_unique<Rfc2217_Toy>();
    std::vector<std::unique_ptr<QSocketNotifier>> notifiers_; ///< of the listener, and of a client
    Qt_Any_Port any_;
};

TEST(QtSocketPort, AHostThatNobodyKnowsIsNamed) {
    Qt_Any_Port any;
    testing::Port_Ear ear;
    any.port().setListener(&ear);
    const std::string host(70, 'h'); // longer than a name can be, so nobody is asked
    EXPECT_TRUE(any.port().open("tcp:" + host + ":502", {}).goesOn);
    ASSERT_TRUE(serveUntil([&] { return !ear.openings.empty(); }));
    EXPECT_EQ(ear.openings[0].reason,
              "Host unknown: no computer of the name " + host +
                  " is known here. Check how it is written, or give its number, such as 192.168.0.7.");
    any.port().setListener(nullptr);
}

TEST(QtSocketPort, AnOpeningThatIsGivenUpTellsNothing) {
    Tcp_Peer peer;
    Qt_Any_Port any;
    testing::Port_Ear ear;
    any.port().setListener(&ear);
    EXPECT_TRUE(any.port().open("tcp:" + peer.hostAndPort(), {}).goesOn);
    any.port().close();
    serveFor(50);
    EXPECT_TRUE(ear.openings.empty());
    EXPECT_TRUE(ear.losses.empty());
    any.port().setListener(nullptr);
}

TEST(QtSocketPort, WhatTheOtherEndSentBeforeItClosedIsTold) {
    Tcp_Peer peer;
    Qt_Any_Port any;
    testing::Port_Ear ear;
    any.port().setListener(&ear);
    EXPECT_TRUE(any.port().open("tcp:" + peer.hostAndPort(), {}).goesOn);
    ASSERT_TRUE(serveUntil([&] { return any.port().isOpen(); }));
    peer.send(Byte_Array{1, 2, 3});
    peer.hangUp();
    ASSERT_TRUE(serveUntil([&] { return !ear.losses.empty(); }));
    EXPECT_EQ(ear.heard, (Byte_Array{1, 2, 3}));
    EXPECT_EQ(ear.losses[0], peer.hostAndPort() + " closed the connection.");
    any.port().setListener(nullptr);
}

TEST(QtSocketPort, AServerThatDoesNotSpeakRfc2217IsNamed) {
    Tcp_Peer peer;
    Qt_Any_Port any;
    testing::Port_Ear ear;
    any.port().setListener(&ear);
    EXPECT_TRUE(any.port().open("rfc2217:" + peer.hostAndPort(), {}).goesOn);
    ASSERT_TRUE(serveUntil([&] { return !ear.openings.empty(); }));
    EXPECT_EQ(ear.openings[0].reason.find("The server " + peer.hostAndPort() + " doesn't speak RFC 2217: "),
              0U);
    any.port().setListener(nullptr);
}

/// How often Qt has complained since it was made.
class Qt_Complaints {
  public:
    Qt_Complaints() : before_(qInstallMessageHandler(count)) { all() = 0; }
    ~Qt_Complaints() { qInstallMessageHandler(before_); }
    Qt_Complaints(const Qt_Complaints&) = delete;
    Qt_Complaints& operator=(const Qt_Complaints&) = delete;
    static int& all() {
        static int number = 0;
        return number;
    }

  private:
    static void count(QtMsgType, const QMessageLogContext&, const QString&) { ++all(); }

    QtMessageHandler before_;
};

TEST(QtSocketPort, AServerThatHangsUpAtOnceIsNamedAndNothingIsWrittenToIt) {
    const Qt_Complaints complaints;
    Tcp_Peer peer;
    Qt_Any_Port any;
    testing::Port_Ear ear;
    any.port().setListener(&ear);
    EXPECT_TRUE(any.port().open("rfc2217:" + peer.hostAndPort(), {}).goesOn);
    ASSERT_GE(peer.client(), 0);
    peer.hangUp();
    ASSERT_TRUE(serveUntil([&] { return !ear.openings.empty(); }));
    EXPECT_EQ(ear.openings[0].reason,
              "The server " + peer.hostAndPort() +
                  " closed the connection before the line was set: is it in use by somebody else?");
    EXPECT_EQ(Qt_Complaints::all(), 0);
    any.port().setListener(nullptr);
}

/// The link and a toy slave at the other end of a connection; both in this thread.
class QtLinkOnNetwork : public ::testing::TestWithParam<const char*> {
  protected:
    QtLinkOnNetwork() {
        Port_Settings settings;
        settings.port = GetParam() + peer.hostAndPort();
        settings.line.baud = 115200;
        settings.timeOutMs = 300;
        assembly = std::make_unique<Qt_Link>(settings, asker);
        listen();
        std::int32_t unit = 0;
        link().ClearBlocks();
        link().AddScanBlock(1, 10, false, "NONE", unit);
        link().AddScanBlock(100, 400, false, "NONE", unit);
        link().SetScanMode("NONE");
    }

    Modbus_Link& link() { return assembly->link(); }
    [[nodiscard]] static bool numbered() { return std::string(GetParam()) == "tcp:"; }

    void listen() {
        arrivals = std::make_unique<QSocketNotifier>(peer.listener(), QSocketNotifier::Read);
        QObject::connect(arrivals.get(), &QSocketNotifier::activated, arrivals.get(), [this] {
            requests.reset();
            peer.takeNewest();
            requests = std::make_unique<QSocketNotifier>(peer.client(), QSocketNotifier::Read);
            QObject::connect(requests.get(), &QSocketNotifier::activated, requests.get(),
                             [this] { serve(); });
        });
    }
    void serve() {
        Byte_Array request = peer.receive(1);
        if (request.size() < 8) return requests->setEnabled(false);
        if (!numbered()) return peer.send(slave.answer(request));
        Byte_Array frame = slave.answer(testing::withCrc({request.begin() + 6, request.end()}));
        const auto length = static_cast<std::uint8_t>(frame.size() - 2);
        Byte_Array answer{request[0], request[1], 0, 0, 0, length};
        answer.insert(answer.end(), frame.begin(), frame.end() - 2);
        peer.send(answer);
    }
    void unplug() {
        requests.reset();
        arrivals.reset();
        peer.unplug();
    }
    void plug() {
        peer.plug();
        listen();
    }

    Tcp_Peer peer;
    Toy_Slave slave;
    testing::Scripted_Asker asker;
    std::unique_ptr<QSocketNotifier> arrivals;
    std::unique_ptr<QSocketNotifier> requests;
    std::unique_ptr<Qt_Link> assembly;
};

TEST_P(QtLinkOnNetwork, ReadsAndWrites) {
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
    EXPECT_TRUE(asker.messages.empty());
    link().StopScan();
    link().ClosePort();
    EXPECT_FALSE(link().portOpen());
}

TEST_P(QtLinkOnNetwork, AConnectionThatBreaksIsMadeAgain) {
    link().PrepareScan();
    link().StartScan();
    ASSERT_TRUE(serveUntil([&] { return link().RxCount() > 2; }));
    unplug();
    ASSERT_TRUE(serveUntil([&] { return link().CommLost(); }));
    ASSERT_TRUE(serveUntil([&] { return !link().portOpen(); }));
    slave.registers[5] = 99;
    plug();
    ASSERT_TRUE(serveUntil([&] { return link().RegisterValue(0, 5) == 99; }));
    EXPECT_FALSE(link().CommLost());
    EXPECT_TRUE(asker.messages.empty());
}

TEST_P(QtLinkOnNetwork, AConnectionThatIsRefusedIsToldOnce) {
    unplug();
    link().PrepareScan();
    link().StartScan();
    ASSERT_TRUE(serveUntil([&] { return !asker.messages.empty(); }));
    const std::string protocol = numbered() ? "Modbus TCP" : "RTU over TCP";
    EXPECT_EQ(asker.messages[0].text, "No connection to " + peer.hostAndPort() + " (" + protocol + ").\n\n" +
                                          refusedAt(std::to_string(peer.port())));
    EXPECT_TRUE(link().CommLost());
    plug();
    ASSERT_TRUE(serveUntil([&] { return !link().CommLost(); }));
    EXPECT_EQ(asker.messages.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Protocols, QtLinkOnNetwork, ::testing::Values("tcp:", "rtu+tcp:"),
                         [](const auto& chosen) {
                             return std::string(chosen.param) == "tcp:" ? "ModbusTcp" : "RtuOverTcp";
                         });

} // namespace

namespace testing {
INSTANTIATE_TYPED_TEST_SUITE_P(Socket, Byte_Port_Suite, Socket_Bench);
INSTANTIATE_TYPED_TEST_SUITE_P(Rfc2217Socket, Byte_Port_Suite, Rfc2217_Socket_Bench);
} // namespace testing
} // namespace zorvane
