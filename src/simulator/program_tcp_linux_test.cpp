// SPDX-License-Identifier: MIT
// The real zorvane-sim on a network, seen from the other end of a connection.
#include "simulator/line/tcp_line.h"
#include "simulator/testing/program_linux_test.h"

#include <sys/inotify.h>

#include <array>
#include <csignal>

namespace zorvane::simulator {
namespace {

using Program_Tcp_Test = Program_Test;

const Bytes readTwo{0x12, 0x34, 0, 0, 0, 6, 1, 3, 0, 100, 0, 2};
const Bytes twoRegisters{0x12, 0x34, 0, 0, 0, 7, 1, 3, 4, 0x03, 0xE8, 0x03, 0xE9};

TEST_F(Program_Tcp_Test, SpeaksModbusTcpOnTheLoopbackAndSaysWhere) {
    startAtTcp();
    EXPECT_EQ(readyAt().substr(0, 14), "tcp:127.0.0.1:");
    const Raw_Client client = Raw_Client::at(readyAt());
    client.send(readTwo);
    EXPECT_EQ(client.receive(13), twoRegisters);
    client.send(Bytes{0, 7, 0, 0, 0, 6, 1, 6, 0, 100, 0, 9});
    EXPECT_EQ(client.receive(12), (Bytes{0, 7, 0, 0, 0, 6, 1, 6, 0, 100, 0, 9}));
    client.send(Bytes{0, 8, 0, 0, 0, 9, 1, 16, 0, 101, 0, 1, 2, 0, 8});
    EXPECT_EQ(client.receive(12), (Bytes{0, 8, 0, 0, 0, 6, 1, 16, 0, 101, 0, 1}));
    client.send(Bytes{0, 9, 0, 0, 0, 6, 1, 3, 1, 0, 0, 1});
    EXPECT_EQ(client.receive(9), (Bytes{0, 9, 0, 0, 0, 3, 1, 0x83, 2}));
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    ASSERT_EQ(log().size(), 8U);
    EXPECT_EQ(log()[0].at("hex"), "12 34 00 00 00 06 01 03 00 64 00 02");
    EXPECT_EQ(log()[0].at("address"), 100);
    EXPECT_EQ(log()[1].at("hex"), "12 34 00 00 00 07 01 03 04 03 E8 03 E9");
    EXPECT_EQ(log()[1].at("values"), (std::vector<int>{1000, 1001}));
}

TEST_F(Program_Tcp_Test, AnotherUnitIsNotAnswered) {
    startAtTcp();
    const Raw_Client client = Raw_Client::at(readyAt());
    client.send(Bytes{0, 1, 0, 0, 0, 6, 2, 3, 0, 100, 0, 2});
    client.send(readTwo);
    EXPECT_EQ(client.receive(13), twoRegisters);
}

TEST_F(Program_Tcp_Test, ClientsMayComeOneAfterTheOther) {
    startAtTcp();
    for (int count = 0; count < 3; ++count) {
        const Raw_Client client = Raw_Client::at(readyAt());
        client.send(Bytes{0x12, 0x34, 0}); // and half a request is forgotten with its client
        const Raw_Client waiting = Raw_Client::at(readyAt());
        client.send(Bytes{0, 0, 6, 1, 3, 0, 100, 0, 2});
        EXPECT_EQ(client.receive(13), twoRegisters);
    }
}

TEST_F(Program_Tcp_Test, TheFramesOfASerialLinePassOverTcpToo) {
    startAtTcp({"--rtu-over-tcp"});
    EXPECT_EQ(readyAt().substr(0, 18), "rtu+tcp:127.0.0.1:");
    const Raw_Client client = Raw_Client::at(readyAt());
    client.send(sealedFrame({1, 3, 0, 100, 0, 1}));
    EXPECT_EQ(client.receive(7), sealedFrame({1, 3, 2, 0x03, 0xE8}));
}

TEST_F(Program_Tcp_Test, FaultsStrikeTheFramesOfModbusTcp) {
    startAtTcp({"--fault", "silent:1", "--fault", "exception=11:1", "--fault", "truncate=8:1", "--fault",
                "wrong-unit:1", "--fault", "short:1"});
    const Raw_Client client = Raw_Client::at(readyAt());
    client.send(readTwo);
    client.send(readTwo);
    EXPECT_EQ(client.receive(9), (Bytes{0x12, 0x34, 0, 0, 0, 3, 1, 0x83, 11})) << "after the silence";
    client.send(readTwo);
    EXPECT_EQ(client.receive(8), Bytes(twoRegisters.begin(), twoRegisters.begin() + 8));
    client.send(readTwo);
    EXPECT_EQ(client.receive(13), (Bytes{0x12, 0x34, 0, 0, 0, 7, 2, 3, 4, 0x03, 0xE8, 0x03, 0xE9}));
    client.send(readTwo);
    EXPECT_EQ(client.receive(11), (Bytes{0x12, 0x34, 0, 0, 0, 5, 1, 3, 2, 0x03, 0xE8}));
}

TEST_F(Program_Tcp_Test, NoiseComesBeforeAFrame) {
    startAtTcp({"--fault", "noise=4:1"});
    const Raw_Client client = Raw_Client::at(readyAt());
    client.send(readTwo);
    const Bytes bytes = client.receive(17);
    ASSERT_EQ(bytes.size(), 17U);
    EXPECT_EQ(Bytes(bytes.begin() + 4, bytes.end()), twoRegisters);
}

TEST_F(Program_Tcp_Test, AnUnplugEndsTheConnectionAndTheSamePortComesBack) {
    startAtTcp({"--fault", "unplug=50:1"});
    const Unique_Fd watch(::inotify_init1(IN_CLOEXEC));
    ASSERT_GE(::inotify_add_watch(watch.get(), path("log.json").c_str(), IN_MODIFY), 0);
    {
        const Raw_Client client = Raw_Client::at(readyAt());
        client.send(readTwo);
        EXPECT_EQ(client.receive(1), Bytes{}) << "the connection has ended";
    }
    std::array<char, 1024> event{};
    while (logWith("event").size() < 2)
        ASSERT_GT(::read(watch.get(), event.data(), event.size()), 0);
    const Raw_Client client = Raw_Client::at(readyAt());
    client.send(readTwo);
    EXPECT_EQ(client.receive(13), twoRegisters);
}

TEST_F(Program_Tcp_Test, APortThatIsTakenIsAnError) {
    const Tcp_Line other("127.0.0.1", 0);
    const std::string place = other.hostAndPort();
    startBare({"--template", path("T.ZTP"), "--tcp", place.substr(place.rfind(':') + 1)});
    const Ended ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints, "zorvane-sim: " + place + ": Address already in use\n");
}

TEST(TcpLine, OnlyTheLoopbackIsThisComputersOwn) {
    for (const char* address : {"127.0.0.1", "127.8.8.8", "::1"})
        EXPECT_TRUE(isLoopback(address)) << address;
    for (const char* address : {"0.0.0.0", "192.168.0.7", "::", "fe80::1"})
        EXPECT_FALSE(isLoopback(address)) << address;
}

TEST_F(Program_Tcp_Test, AnAddressIsANumber) {
    startBare({"--template", path("T.ZTP"), "--tcp", "0", "--listen", "localhost.example"});
    const Ended ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints,
              "zorvane-sim: localhost.example is no address: write a number, such as 127.0.0.1\n");
}

} // namespace
} // namespace zorvane::simulator
