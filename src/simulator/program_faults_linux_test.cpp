// SPDX-License-Identifier: MIT
#include "simulator/testing/program_linux_test.h"

#include <sys/inotify.h>

#include <chrono>
#include <csignal>

namespace zorvane::simulator {
namespace {

/// Each test sees one fault on the wire, and the request after it answered well.
class Fault_On_The_Wire : public Program_Test {
  protected:
    /// What comes back for a request, when so many bytes are expected.
    Bytes ask(const Raw_Client& client, Bytes_View request, std::size_t count) {
        client.send(request);
        return client.receive(count);
    }

    const Bytes read_ = sealedFrame({1, 3, 0, 100, 0, 2});
    const Bytes good_ = sealedFrame({1, 3, 4, 0x03, 0xE8, 0x03, 0xE9});
    const Bytes write_ = sealedFrame({1, 6, 0, 100, 0, 7});
    const Bytes written_ = sealedFrame({1, 3, 4, 0, 7, 0x03, 0xE9});
};

TEST_F(Fault_On_The_Wire, Silent) {
    start({"--fault", "silent:1"});
    const Raw_Client client(link());
    client.send(write_);
    // The write was taken: its register shows it, and nothing but the second answer comes.
    EXPECT_EQ(ask(client, read_, 9), written_);
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    ASSERT_EQ(logWith("fault").size(), 1U);
    EXPECT_EQ(logWith("fault")[0]["fault"], "silent:1");
    EXPECT_EQ(logWith("fault")[0]["taken"], true);
}

TEST_F(Fault_On_The_Wire, Late) {
    start({"--fault", "late=300:1"});
    const Raw_Client client(link());
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(ask(client, read_, 9), good_);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(300));
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, ALateAnswerComesBeforeThatOfTheNextRequest) {
    start({"--fault", "late=200:1"});
    const Raw_Client client(link());
    client.send(read_);
    EXPECT_EQ(ask(client, sealedFrame({1, 3, 0, 104, 0, 2}), 18).size(), 18U);
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    const auto lines = log();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[2]["address"], 100);
    EXPECT_EQ(lines[3]["address"], 104);
}

TEST_F(Fault_On_The_Wire, Crc) {
    start({"--fault", "crc:1"});
    const Raw_Client client(link());
    const Bytes bad = ask(client, read_, 9);
    ASSERT_EQ(bad.size(), 9U);
    EXPECT_TRUE(std::equal(bad.begin(), bad.begin() + 7, good_.begin()));
    EXPECT_NE(bad, good_);
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, Truncate) {
    start({"--fault", "truncate=3:1"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, read_, 3), (Bytes{1, 3, 4}));
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, Noise) {
    start({"--fault", "noise=6:1"});
    const Raw_Client client(link());
    const Bytes noisy = ask(client, read_, 15);
    ASSERT_EQ(noisy.size(), 15U);
    EXPECT_EQ(Bytes(noisy.begin() + 6, noisy.end()), good_);
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, Echo) {
    start({"--fault", "echo:1"});
    const Raw_Client client(link());
    Bytes both = read_;
    both.insert(both.end(), good_.begin(), good_.end());
    EXPECT_EQ(ask(client, read_, 17), both);
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, AnEchoOnAPacedLinePassesWithTheRequest) {
    start({"--fault", "echo:1", "--pace", "1200", "--turnaround", "100"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, read_, 17).size(), 17U);
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    const auto lines = log();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1]["note"], "local echo");
    // Silence, turnaround and the answer's nine characters lie between the two ends.
    EXPECT_GE(lines[2]["ms"].get<double>() - lines[1]["ms"].get<double>(), 100 + 8 * 10 / 1.2);
}

TEST_F(Fault_On_The_Wire, WrongUnit) {
    start({"--fault", "wrong-unit:1"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, read_, 9), sealedFrame({2, 3, 4, 0x03, 0xE8, 0x03, 0xE9}));
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, WrongEcho) {
    start({"--fault", "wrong-echo:1"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, read_, 9), good_);
    const Bytes echo = ask(client, write_, 8);
    ASSERT_EQ(echo.size(), 8U);
    EXPECT_EQ(echo, sealedFrame({echo[0], echo[1], echo[2], echo[3], echo[4], echo[5]}));
    EXPECT_NE(echo, write_);
    EXPECT_EQ(ask(client, read_, 9), good_);
    EXPECT_EQ(ask(client, write_, 8), write_);
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    EXPECT_EQ(logWith("taken")[0]["taken"], false);
    EXPECT_EQ(logWith("taken")[1]["taken"], true);
}

TEST_F(Fault_On_The_Wire, Short) {
    start({"--fault", "short:1"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, read_, 7), sealedFrame({1, 3, 2, 0x03, 0xE8}));
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, Exception) {
    start({"--fault", "exception=4:1"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, write_, 5), sealedFrame({1, 0x86, 4}));
    EXPECT_EQ(ask(client, read_, 9), good_);
}

TEST_F(Fault_On_The_Wire, Busy) {
    start({"--fault", "busy=2@100-100"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, write_, 5), sealedFrame({1, 0x86, 6}));
    EXPECT_EQ(ask(client, write_, 5), sealedFrame({1, 0x86, 6}));
    EXPECT_EQ(ask(client, write_, 8), write_);
    EXPECT_EQ(ask(client, sealedFrame({1, 6, 0, 101, 0, 7}), 8), sealedFrame({1, 6, 0, 101, 0, 7}));
}

TEST_F(Fault_On_The_Wire, UnplugComesBackUnderTheSameLink) {
    start({"--fault", "unplug=100:1"});
    const Unique_Fd watch(::inotify_init1(IN_CLOEXEC));
    ASSERT_GE(::inotify_add_watch(watch.get(), path("").c_str(), IN_MOVED_TO), 0);
    {
        const Raw_Client client(link());
        client.send(write_);
        EXPECT_TRUE(client.waitForHangUp());
        EXPECT_TRUE(client.receive(1).empty());
    }
    std::array<char, 1024> event{};
    EXPECT_GT(::read(watch.get(), event.data(), event.size()), 0);
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, read_, 9), good_);
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    ASSERT_EQ(logWith("event").size(), 2U);
    EXPECT_EQ(logWith("event")[0]["event"], "unplugged");
    EXPECT_EQ(logWith("event")[1]["event"], "plugged in");
    EXPECT_GE(logWith("event")[1]["ms"].get<double>() - logWith("event")[0]["ms"].get<double>(), 100);
}

TEST_F(Fault_On_The_Wire, EndsInOrderWhileUnplugged) {
    start({"--fault", "unplug=60000"});
    {
        const Raw_Client client(link());
        client.send(read_);
        EXPECT_TRUE(client.waitForHangUp());
    }
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    EXPECT_FALSE(std::filesystem::is_symlink(link()));
}

} // namespace
} // namespace zorvane::simulator
