// SPDX-License-Identifier: MIT
#include "simulator/testing/program_linux_test.h"

#include <modbus/modbus.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace zorvane::simulator {
namespace {

using Words = std::vector<std::uint16_t>;

/// libmodbus as the master on the line.
class Master {
  public:
    explicit Master(const std::string& device)
        : context_(modbus_new_rtu(device.c_str(), 9600, 'N', 8, 1), modbus_free) {
        modbus_set_slave(context_.get(), 1);
        modbus_set_response_timeout(context_.get(), 2, 0);
        if (modbus_connect(context_.get()) != 0) throw std::runtime_error(modbus_strerror(errno));
    }
    ~Master() { modbus_close(context_.get()); }
    Master(const Master&) = delete;
    Master& operator=(const Master&) = delete;

    [[nodiscard]] Words read(int address, int count) {
        Words words(static_cast<std::size_t>(count));
        const int got = modbus_read_registers(context_.get(), address, count, words.data());
        words.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
        return words;
    }
    [[nodiscard]] bool write(int address, std::uint16_t value) {
        return modbus_write_register(context_.get(), address, value) == 1;
    }
    [[nodiscard]] bool write(int address, const Words& words) {
        const int count = static_cast<int>(words.size());
        return modbus_write_registers(context_.get(), address, count, words.data()) == count;
    }
    [[nodiscard]] modbus_t* context() { return context_.get(); }

  private:
    std::unique_ptr<modbus_t, decltype(&modbus_free)> context_;
};

TEST_F(Program_Test, ServesALibmodbusMaster) {
    start();
    Master master(link());
    EXPECT_EQ(master.read(100, 3), (Words{1000, 1001, 1002}));
    EXPECT_TRUE(master.write(101, std::uint16_t{77}));
    EXPECT_TRUE(master.write(102, Words{78, 79}));
    EXPECT_EQ(master.read(100, 5), (Words{1000, 77, 78, 79, 1004}));
}

TEST_F(Program_Test, RefusesUnknownRegistersAndFunctions) {
    start();
    Master master(link());
    EXPECT_TRUE(master.read(99, 1).empty());
    EXPECT_EQ(errno, EMBXILADD);
    EXPECT_FALSE(master.write(110, std::uint16_t{1}));
    EXPECT_EQ(errno, EMBXILADD);
    Words words(1);
    EXPECT_EQ(modbus_read_input_registers(master.context(), 100, 1, words.data()), -1);
    EXPECT_EQ(errno, EMBXILFUN);
    std::array<std::uint8_t, 8> bits{};
    EXPECT_EQ(modbus_report_slave_id(master.context(), bits.size(), bits.data()), -1);
    EXPECT_EQ(errno, EMBXILFUN);
}

TEST_F(Program_Test, LiveRegistersLiveUntilTheyAreWritten) {
    start();
    Master master(link());
    const Words first = master.read(200, 4);
    const Words second = master.read(200, 4);
    EXPECT_EQ(first, (Words{500, 65036, 0, 0}));
    EXPECT_NE(second[0], 500);
    EXPECT_NE(second[1], 65036);
    EXPECT_EQ(second[2], 0);
    EXPECT_TRUE(master.write(200, std::uint16_t{40}));
    EXPECT_EQ(master.read(200, 1), (Words{40}));
    EXPECT_EQ(master.read(200, 1), (Words{40}));
}

TEST_F(Program_Test, TakesABroadcastWithoutAnAnswer) {
    start();
    const Raw_Client client(link());
    client.send(sealedFrame({0, 6, 0, 100, 0, 7}));
    client.send(sealedFrame({1, 3, 0, 100, 0, 1}));
    EXPECT_EQ(client.receive(7), sealedFrame({1, 3, 2, 0, 7}));
}

TEST_F(Program_Test, LogsEveryFrame) {
    start();
    {
        const Raw_Client client(link());
        client.send(sealedFrame({1, 6, 0, 100, 0, 7}));
        (void)client.receive(8);
    }
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    const auto lines = log();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]["direction"], "in");
    EXPECT_EQ(lines[0]["function"], 6);
    EXPECT_EQ(lines[0]["taken"], true);
    EXPECT_EQ(lines[1]["direction"], "out");
    EXPECT_EQ(lines[1]["hex"], "01 06 00 64 00 07 89 D7");
    EXPECT_GE(lines[1]["ms"], lines[0]["ms"]);
}

TEST_F(Program_Test, SetsRegistersFromJson) {
    std::ofstream(path("r.json")) << R"({"100": 65535, "3000": 12})";
    start({"--registers", path("r.json")});
    Master master(link());
    EXPECT_EQ(master.read(100, 2), (Words{65535, 1001}));
    EXPECT_EQ(master.read(3000, 1), (Words{12}));
}

TEST_F(Program_Test, HoldsAConfigurationsValues) {
    std::ofstream(path("site.T")) << "[FIELD_1_DEFAULT]\nROW_1=-1,2\n";
    start({"--config", path("site.T"), "--slave", "1"});
    Master master(link());
    EXPECT_EQ(master.read(100, 3), (Words{65535, 2, 1002}));
}

TEST_F(Program_Test, IsNeverFasterThanTheWire) {
    start({"--pace", "9600", "--turnaround", "20"});
    const Raw_Client client(link());
    const auto begin = std::chrono::steady_clock::now();
    client.send(sealedFrame({1, 3, 0, 100, 0, 10}));
    EXPECT_EQ(client.receive(25).size(), 25U);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    // 8 + 25 characters of 10 bits, a silence of 3.5 characters, the turnaround.
    EXPECT_GE(took.count(), (8 + 25 + 3.5) * 10 / 9.6 + 20);
}

TEST_F(Program_Test, NoiseAndHalvesOfRequestsDoNotWedgeIt) {
    start();
    const Raw_Client client(link());
    const Bytes request = sealedFrame({1, 3, 0, 100, 0, 1});
    for (const Bytes& rubbish :
         {Bytes{1, 3, 0}, Bytes(5000, 0xFF), Bytes{1, 16, 0, 100, 0, 2, 255}, Bytes{0}}) {
        client.send(rubbish);
        // The first request may still belong to the rubbish, as on a real line; a later one is heard.
        int tries = 0;
        do {
            client.send(request);
        } while (!client.readable(200) && ++tries < 10);
        EXPECT_EQ(client.receive(7), sealedFrame({1, 3, 2, 0x03, 0xE8}));
        EXPECT_LE(tries, 1);
    }
}

TEST_F(Program_Test, AClientMayCloseAndAnotherOpen) {
    start();
    {
        const Raw_Client gone(link());
        gone.send(sealedFrame({1, 3, 0, 100, 0, 10}));
        EXPECT_TRUE(gone.readable(2000));
    }
    // Nothing of the answer that nobody took stays for the next client.
    const Raw_Client next(link());
    EXPECT_TRUE(next.waitUntilEmpty());
    next.send(sealedFrame({1, 3, 0, 101, 0, 1}));
    EXPECT_EQ(next.receive(7), sealedFrame({1, 3, 2, 0x03, 0xE9}));
}

TEST_F(Program_Test, EndsInOrderAndTakesItsLinkAway) {
    for (const int signal : {SIGTERM, SIGINT}) {
        start();
        EXPECT_TRUE(std::filesystem::is_symlink(link()));
        const Ended ended = end(signal);
        EXPECT_EQ(ended.exitCode, 0);
        EXPECT_EQ(ended.complaints, "");
        EXPECT_FALSE(std::filesystem::is_symlink(link()));
    }
}

TEST_F(Program_Test, ReplacesAStaleLinkAndNothingElse) {
    std::filesystem::create_symlink("/nowhere", link());
    start();
    Master master(link());
    EXPECT_EQ(master.read(100, 1), (Words{1000}));
    EXPECT_EQ(end(SIGTERM).exitCode, 0);
    std::ofstream(link()) << "precious";
    startBare({"--template", path("T.ZTP"), "--pty", link()});
    const Ended ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints, "zorvane-sim: " + link() + " exists and is not a link\n");
    EXPECT_TRUE(std::filesystem::is_regular_file(link()));
}

TEST_F(Program_Test, SaysWhyItCanNotStart) {
    startBare({"--template", path("NO.ZTP"), "--pty", link()});
    Ended ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints, "zorvane-sim: " + path("NO.ZTP") + ": no such file\n");
    std::ofstream(path("r.json")) << "[]";
    startBare({"--template", path("T.ZTP"), "--pty", link(), "--registers", path("r.json")});
    ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints,
              "zorvane-sim: " + path("r.json") + ": not a JSON object of the form {\"address\": value, …}\n");
    startBare({"--template", path("T.ZTP"), "--port", path("no-port")});
    ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints, "zorvane-sim: " + path("no-port") + ": No such file or directory\n");
    startBare({"--template", path("T.ZTP"), "--port", path("no-port"), "--settings", "12345,n,8,1"});
    ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints, "zorvane-sim: " + path("no-port") + ": no serial port runs at 12345 baud\n");
    startBare({"--template", path("T.ZTP"), "--pty", link(), "--log", path("no/log.json")});
    ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints, "zorvane-sim: log file " + path("no/log.json") + " can't be written\n");
    startBare({"--template", path("T.ZTP"), "--pty", link(), "--fault", "crc=1"});
    EXPECT_EQ(waitForEnd().exitCode, 2);
}

TEST_F(Program_Test, GoesOnWithoutItsLogWhenThatIsFull) {
    startBare({"--template", path("T.ZTP"), "--pty", link(), "--log", "/dev/full"});
    waitUntilReady();
    EXPECT_EQ(Master(link()).read(100, 2), (Words{1000, 1001}));
    EXPECT_EQ(end(SIGTERM).complaints, "zorvane-sim: the log can't be written any more\n");
}

TEST_F(Program_Test, ServesASerialPortUntilItGoes) {
    Unique_Fd master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    ASSERT_EQ(::unlockpt(master.get()), 0);
    std::array<char, 256> name{};
    ASSERT_EQ(::ptsname_r(master.get(), name.data(), name.size()), 0);
    startBare({"--template", path("T.ZTP"), "--port", name.data()});
    waitUntilReady();
    const Bytes request = sealedFrame({1, 3, 0, 100, 0, 1});
    ASSERT_EQ(::write(master.get(), request.data(), request.size()), 8);
    Bytes answer(7);
    std::size_t got = 0;
    while (got < answer.size()) {
        const ssize_t more = ::read(master.get(), answer.data() + got, answer.size() - got);
        ASSERT_GT(more, 0);
        got += static_cast<std::size_t>(more);
    }
    EXPECT_EQ(answer, sealedFrame({1, 3, 2, 0x03, 0xE8}));
    master.reset();
    const Ended ended = waitForEnd();
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_EQ(ended.complaints.substr(0, 29), "zorvane-sim: the line is gone");
}

} // namespace
} // namespace zorvane::simulator
