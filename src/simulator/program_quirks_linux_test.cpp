// SPDX-License-Identifier: MIT
#include "simulator/testing/program_linux_test.h"

#include <sys/inotify.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace zorvane::simulator {
namespace {

/// Each test sees one quirk through the real program's line.
class Quirk_On_The_Wire : public Program_Test {
  protected:
    Bytes ask(const Raw_Client& client, const Bytes& body, std::size_t count) {
        client.send(sealedFrame(body));
        return client.receive(count);
    }
    /// What a register is read as; -1 when it isn't.
    int read(const Raw_Client& client, std::uint8_t address) {
        const Bytes answer = ask(client, {1, 3, 0, address, 0, 1}, 7);
        return answer.size() == 7 ? answer[3] << 8 | answer[4] : -1;
    }
    /// Whether a write of register 100 to 109 is acknowledged.
    bool write(const Raw_Client& client, std::uint8_t address, std::uint16_t value) {
        const Bytes body{
            1, 6, 0, address, static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value & 0xFF)};
        return ask(client, body, 8) == sealedFrame(body);
    }
    [[nodiscard]] std::string text(const std::string& name) const {
        std::ifstream file(path(name));
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
};

TEST_F(Quirk_On_The_Wire, AcknowledgedAndNotKept) {
    start({"--quirk", "forgets@101"});
    const Raw_Client client(link());
    EXPECT_TRUE(write(client, 100, 7));
    EXPECT_TRUE(write(client, 101, 7));
    EXPECT_EQ(read(client, 100), 7);
    EXPECT_EQ(read(client, 101), 1001);
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    ASSERT_EQ(logWith("quirk").size(), 1U);
    EXPECT_EQ(logWith("quirk")[0]["quirk"], "forgets@101");
    EXPECT_EQ(logWith("quirk")[0]["stored"], nlohmann::json({1001}));
}

TEST_F(Quirk_On_The_Wire, ARateOfForgottenWritesIsTheSameForTheSameSeed) {
    const auto run = [this] {
        start({"--quirk", "forgets:25%", "--seed", "5"});
        const Raw_Client client(link());
        std::vector<int> values;
        for (std::uint16_t value = 1; value <= 40; ++value) {
            EXPECT_TRUE(write(client, 100, value));
            values.push_back(read(client, 100));
        }
        EXPECT_EQ(end(SIGTERM).exitCode, 0);
        return values;
    };
    const std::vector<int> once = run();
    int kept = 0;
    for (std::size_t i = 0; i < once.size(); ++i)
        kept += once[i] == static_cast<int>(i) + 1 ? 1 : 0;
    EXPECT_GT(kept, 20);
    EXPECT_LT(kept, 40);
    EXPECT_EQ(run(), once);
}

TEST_F(Quirk_On_The_Wire, StoredRoundedAndClamped) {
    start({"--quirk", "rounds=10@100", "--quirk", "at-most=1400@101", "--quirk", "at-least=5@102"});
    const Raw_Client client(link());
    EXPECT_TRUE(write(client, 100, 1234));
    EXPECT_TRUE(write(client, 101, 1401));
    EXPECT_TRUE(write(client, 102, 4));
    EXPECT_EQ(read(client, 100), 1230);
    EXPECT_EQ(read(client, 101), 1400);
    EXPECT_EQ(read(client, 102), 5);
}

TEST_F(Quirk_On_The_Wire, TheOldValueForAWhileAfterTheWrite) {
    start({"--quirk", "stale=150"});
    const Raw_Client client(link());
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(write(client, 100, 7));
    int value = read(client, 100);
    EXPECT_TRUE(value == 1000 || std::chrono::steady_clock::now() - begin > std::chrono::milliseconds(150));
    while (value == 1000)
        value = read(client, 100);
    EXPECT_EQ(value, 7);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(150));
}

TEST_F(Quirk_On_The_Wire, AValueThatChangesByItself) {
    start({"--quirk", "drifts=20@100"});
    const Raw_Client client(link());
    EXPECT_TRUE(write(client, 100, 7));
    const auto begin = std::chrono::steady_clock::now();
    int value = 7;
    while (value < 12)
        value = read(client, 100);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(80));
    EXPECT_EQ(read(client, 101), 1001);
}

TEST_F(Quirk_On_The_Wire, AWriteOnlyRegister) {
    start({"--quirk", "write-only@101"});
    const Raw_Client client(link());
    EXPECT_TRUE(write(client, 101, 7));
    EXPECT_EQ(ask(client, {1, 3, 0, 100, 0, 2}, 5), sealedFrame({1, 0x83, 2}));
    EXPECT_EQ(read(client, 100), 1000);
}

TEST_F(Quirk_On_The_Wire, ALimitThatAnotherRegisterHolds) {
    start({"--quirk", "not-above=101@100", "--quirk", "not-below=102@103"});
    const Raw_Client client(link());
    EXPECT_EQ(ask(client, {1, 6, 0, 100, 4, 0}, 5), sealedFrame({1, 0x86, 3}));
    EXPECT_EQ(ask(client, {1, 6, 0, 103, 0, 1}, 5), sealedFrame({1, 0x86, 3}));
    EXPECT_TRUE(write(client, 101, 1024));
    EXPECT_TRUE(write(client, 100, 1024));
    EXPECT_TRUE(write(client, 102, 1));
    EXPECT_TRUE(write(client, 103, 1));
}

TEST_F(Quirk_On_The_Wire, AnotherModelAfterSoManyRequests) {
    std::ofstream(path("other.json")) << R"({"100": 5, "300": 6})";
    start({"--exchange-after", "2", "--exchange-registers", path("other.json")});
    const Raw_Client client(link());
    EXPECT_EQ(read(client, 100), 1000);
    EXPECT_TRUE(write(client, 100, 7));
    EXPECT_EQ(read(client, 100), 5);
    EXPECT_EQ(ask(client, {1, 3, 1, 44, 0, 1}, 7), sealedFrame({1, 3, 2, 0, 6}));
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    ASSERT_EQ(logWith("event").size(), 1U);
    EXPECT_EQ(logWith("event")[0]["event"], "exchanged");
}

TEST_F(Quirk_On_The_Wire, APowerCutLeavesWhatWasStored) {
    start({"--quirk", "power-cut=100:1@105", "--store-after", "60000"});
    const Raw_Client client(link());
    EXPECT_TRUE(write(client, 100, 7));
    EXPECT_EQ(read(client, 100), 7);
    client.send(sealedFrame({1, 6, 0, 105, 0, 7}));
    // Nothing but the answer to the first request after the power came.
    Bytes answer;
    while (answer.empty()) {
        client.send(sealedFrame({1, 3, 0, 100, 0, 1}));
        if (client.readable(50)) answer = client.receive(7);
    }
    EXPECT_EQ(answer, sealedFrame({1, 3, 2, 0x03, 0xE8}));
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    ASSERT_EQ(logWith("event").size(), 2U);
    EXPECT_EQ(logWith("event")[0]["event"], "power off");
    EXPECT_EQ(logWith("event")[1]["event"], "power on");
    EXPECT_GE(logWith("event")[1]["ms"].get<double>() - logWith("event")[0]["ms"].get<double>(), 100);
}

TEST_F(Quirk_On_The_Wire, AKilledControllerStartsWithWhatItHadStored) {
    start({"--storage", path("stored.json")});
    {
        const Raw_Client client(link());
        EXPECT_TRUE(write(client, 100, 7));
    }
    EXPECT_EQ(end(SIGKILL).exitCode, -1);
    EXPECT_EQ(nlohmann::json::parse(text("stored.json"))["100"], 7);
    EXPECT_EQ(nlohmann::json::parse(text("stored.json"))["101"], 1001);
    start({"--storage", path("stored.json")});
    const Raw_Client client(link());
    EXPECT_EQ(read(client, 100), 7);
    EXPECT_EQ(read(client, 101), 1001);
}

TEST_F(Quirk_On_The_Wire, AWriteIsStoredLateThoughNobodyAsks) {
    start({"--storage", path("stored.json"), "--store-after", "50"});
    const Unique_Fd watch(::inotify_init1(IN_CLOEXEC));
    ASSERT_GE(::inotify_add_watch(watch.get(), path("").c_str(), IN_MOVED_TO), 0);
    const Raw_Client client(link());
    EXPECT_TRUE(write(client, 100, 7));
    std::array<char, 1024> event{};
    EXPECT_GT(::read(watch.get(), event.data(), event.size()), 0);
    EXPECT_EQ(nlohmann::json::parse(text("stored.json"))["100"], 7);
}

TEST_F(Quirk_On_The_Wire, AStorageThatCannotBeReadOrWrittenEndsWith1) {
    std::ofstream(path("bad.json")) << "[1]";
    startBare({"--template", path("T.ZTP"), "--pty", link(), "--storage", path("bad.json")});
    const Ended unreadable = waitForEnd();
    EXPECT_EQ(unreadable.exitCode, 1);
    EXPECT_EQ(unreadable.complaints, "zorvane-sim: " + path("bad.json") +
                                         ": not a JSON object of the form {\"address\": value, …}\n");
    startBare({"--template", path("T.ZTP"), "--pty", link(), "--storage", path("no-folder/s.json")});
    const Ended unwritable = waitForEnd();
    EXPECT_EQ(unwritable.exitCode, 1);
    EXPECT_EQ(unwritable.complaints,
              "zorvane-sim: " + path("no-folder/s.json.new") + ": No such file or directory\n");
}

TEST_F(Quirk_On_The_Wire, TellsItsObjects) {
    start({"--object", "0=Acme", "--object", "1=T-1"});
    const Raw_Client client(link());
    EXPECT_EQ(
        ask(client, {1, 43, 14, 1, 0}, 23),
        sealedFrame({1, 43, 14, 1, 0x81, 0, 0, 3, 0, 4, 'A', 'c', 'm', 'e', 1, 3, 'T', '-', '1', 2, 0}));
    EXPECT_EQ(ask(client, {1, 43, 14, 4, 7}, 5), sealedFrame({1, 0xAB, 2}));
    EXPECT_EQ(read(client, 100), 1000);
}

} // namespace
} // namespace zorvane::simulator
