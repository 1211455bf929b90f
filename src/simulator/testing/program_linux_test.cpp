// SPDX-License-Identifier: MIT
#include "simulator/testing/program_linux_test.h"

#include "simulator/controller/modbus_slave.h"

#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <system_error>
#include <termios.h>

extern char** environ; // NOLINT: the name that POSIX gives it

namespace zorvane::simulator {

namespace {

constexpr const char* testTemplate = "[HARDWARE]\n"
                                     "CONTROLLER=TEST-1\n"
                                     "[CONFIGURATION_FIELDS]\n"
                                     "FIELD_1_DESC=Channels\n"
                                     "FIELD_1_RC=2,10\n"
                                     "[FIELD_1_CONFIGURATION]\n"
                                     "ROWADDRESS_1=100,101,102,103,104,105,106,107,108,109\n"
                                     "ROWADDRESS_2=200,201\n"
                                     "[PORT_CONFIGURATION]\n"
                                     "HOLDINGREGISTERSBLOCK_1=100-109\n"
                                     "HOLDINGREGISTERSBLOCK_2=200-203\n"
                                     "HOLDINGREQUESTBLOCK_2=ALWAYS\n"
                                     "[FIELD_1_DEFAULT]\n"
                                     "ROW_1=1000,1001,1002,1003,1004,1005,1006,1007,1008,1009\n"
                                     "ROW_2=500,-500\n";

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

std::string fileText(const std::string& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::filesystem::path newFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zorvane-sim-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) fail(pattern);
    return pattern;
}

} // namespace

Program_Test::Program_Test() : folder_(newFolder()) { std::ofstream(path("T.ZTP")) << testTemplate; }

Program_Test::~Program_Test() {
    if (program_ > 0) {
        ::kill(program_, SIGKILL);
        ::waitpid(program_, nullptr, 0);
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void Program_Test::start(std::vector<std::string> arguments) {
    for (const std::string& text : {std::string("--template"), path("T.ZTP"), std::string("--pty"), link(),
                                    std::string("--log"), path("log.json")})
        arguments.push_back(text);
    startBare(arguments);
    waitUntilReady();
}

void Program_Test::startAtTcp(std::vector<std::string> arguments) {
    for (const std::string& text : {std::string("--template"), path("T.ZTP"), std::string("--tcp"),
                                    std::string("0"), std::string("--log"), path("log.json")})
        arguments.push_back(text);
    startBare(arguments);
    waitUntilReady();
}

void Program_Test::startBare(const std::vector<std::string>& arguments) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) fail("pipe");
    output_ = Unique_Fd(pipe[0]);
    const Unique_Fd write(pipe[1]);
    std::vector<std::string> words{ZORVANE_SIM_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t files;
    ::posix_spawn_file_actions_init(&files);
    ::posix_spawn_file_actions_adddup2(&files, write.get(), STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&files, STDERR_FILENO, path("complaints").c_str(),
                                       O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const int failed = ::posix_spawn(&program_, ZORVANE_SIM_PROGRAM, &files, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&files);
    ASSERT_EQ(failed, 0);
}

void Program_Test::waitUntilReady() {
    std::string line;
    char character = 0;
    while (::read(output_.get(), &character, 1) == 1 && character != '\n')
        line += character;
    ASSERT_EQ(line.substr(0, 6), "ready ") << fileText(path("complaints"));
    readyAt_ = line.substr(6);
}

Ended Program_Test::end(int signal) {
    ::kill(program_, signal);
    return waitForEnd();
}

Ended Program_Test::waitForEnd() {
    int status = 0;
    ::waitpid(program_, &status, 0);
    program_ = -1;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, fileText(path("complaints"))};
}

std::vector<nlohmann::json> Program_Test::log() const {
    std::vector<nlohmann::json> lines;
    std::ifstream file(path("log.json"));
    for (std::string line; std::getline(file, line);)
        lines.push_back(nlohmann::json::parse(line));
    return lines;
}

std::vector<nlohmann::json> Program_Test::logWith(const std::string& member) const {
    std::vector<nlohmann::json> lines;
    for (nlohmann::json& line : log())
        if (line.contains(member)) lines.push_back(std::move(line));
    return lines;
}

Raw_Client::Raw_Client(const std::string& device)
    : fd_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (!fd_.open()) fail(device);
    termios line{};
    ::tcgetattr(fd_.get(), &line);
    ::cfmakeraw(&line);
    ::tcsetattr(fd_.get(), TCSANOW, &line);
}

Raw_Client Raw_Client::at(const std::string& readyAt) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(std::stoi(readyAt.substr(readyAt.rfind(':') + 1))));
    Unique_Fd client(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (::connect(client.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        fail(readyAt);
    return Raw_Client(std::move(client));
}

void Raw_Client::send(Bytes_View bytes) const {
    if (::write(fd_.get(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) fail("write");
}

Bytes Raw_Client::receive(std::size_t count) const {
    Bytes bytes;
    while (bytes.size() < count && readable(2000)) {
        Bytes buffer(count - bytes.size());
        const ssize_t got = ::read(fd_.get(), buffer.data(), buffer.size());
        if (got <= 0) break;
        bytes.insert(bytes.end(), buffer.begin(), buffer.begin() + got);
    }
    return bytes;
}

bool Raw_Client::readable(int milliseconds) const {
    pollfd entry{fd_.get(), POLLIN, 0};
    return ::poll(&entry, 1, milliseconds) == 1 && (entry.revents & POLLIN) != 0;
}

bool Raw_Client::waitUntilEmpty() const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    int waiting = 0;
    while (::ioctl(fd_.get(), FIONREAD, &waiting) == 0 && waiting > 0) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        ::poll(nullptr, 0, 1);
    }
    return waiting == 0;
}

bool Raw_Client::waitForHangUp() const {
    pollfd entry{fd_.get(), 0, 0};
    return ::poll(&entry, 1, 5000) == 1 && (entry.revents & (POLLHUP | POLLERR)) != 0;
}

Bytes sealedFrame(const Bytes& body) { return Modbus_Slave(1).sealed(body); }

} // namespace zorvane::simulator
