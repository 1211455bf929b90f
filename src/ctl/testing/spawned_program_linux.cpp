// SPDX-License-Identifier: MIT
#include "ctl/testing/spawned_program_linux.h"

#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace zorvane::doubles {

namespace {

constexpr std::chrono::milliseconds longest{30000};

std::array<int, 2> makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    return ends;
}

[[noreturn]] void become(const std::vector<std::string>& command, uid_t user, int out, int err) {
    std::vector<char*> arguments;
    for (const std::string& text : command)
        arguments.push_back(const_cast<char*>(text.c_str()));
    arguments.push_back(nullptr);
    ::signal(SIGHUP, SIG_DFL); // whoever runs the tests may have it ignored
    ::dup2(out, STDOUT_FILENO);
    ::dup2(err, STDERR_FILENO);
    if (user == 0 || ::setuid(user) == 0) ::execv(arguments[0], arguments.data());
    ::_exit(127);
}

} // namespace

Spawned_Program::Spawned_Program(const std::vector<std::string>& command, uid_t user) {
    const auto out = makePipe();
    const auto err = makePipe();
    pid_ = ::fork();
    if (pid_ == 0) become(command, user, out[1], err[1]);
    ::close(out[1]);
    ::close(err[1]);
    out_.fd = out[0];
    err_.fd = err[0];
}

Spawned_Program::~Spawned_Program() {
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }
    for (const Stream* stream : {&out_, &err_})
        if (stream->fd >= 0) ::close(stream->fd);
}

void Spawned_Program::signal(int number) const {
    if (pid_ > 0) ::kill(pid_, number); // -1 would mean every process there is
}

bool Spawned_Program::readSome(std::chrono::milliseconds atMost) {
    std::array<pollfd, 2> waiting{pollfd{out_.fd, POLLIN, 0}, pollfd{err_.fd, POLLIN, 0}};
    if (::poll(waiting.data(), waiting.size(), static_cast<int>(atMost.count())) <= 0) return false;
    std::size_t place = 0;
    for (Stream* stream : {&out_, &err_}) {
        if (waiting[place++].revents == 0) continue;
        std::array<char, 4096> bytes{};
        const auto count = ::read(stream->fd, bytes.data(), bytes.size());
        if (count > 0) {
            stream->text.append(bytes.data(), static_cast<std::size_t>(count));
        } else {
            ::close(stream->fd);
            stream->fd = -1; // poll passes over it from now on
        }
    }
    return out_.fd >= 0 || err_.fd >= 0;
}

bool Spawned_Program::await(Stream& stream, const std::string& text) {
    const auto deadline = std::chrono::steady_clock::now() + longest;
    while (stream.text.find(text) == std::string::npos) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0 || stream.fd < 0 || !readSome(left)) return false;
    }
    return true;
}

int Spawned_Program::finish() {
    while (readSome(longest)) {
    }
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace zorvane::doubles
