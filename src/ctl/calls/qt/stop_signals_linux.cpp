// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/stop_signals.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace zorvane::ctl {

namespace {

/// Where the handler writes to: all that it may do is little, and one of it is `write`.
std::atomic<int> writingEnd{-1};
/// The first signal; 0 for none yet.
std::atomic<int> firstSignal{0};

void noteSignal(int signal) {
    const int saved = errno;
    int none = 0;
    firstSignal.compare_exchange_strong(none, signal);
    const char byte = static_cast<char>(signal);
    // A full pipe holds a wish to stop already.
    [[maybe_unused]] const auto written = ::write(writingEnd.load(), &byte, 1);
    errno = saved;
}

bool isIgnored(int signal) {
    struct sigaction present {};
    return ::sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

void handleWith(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
    if (!isIgnored(SIGHUP)) ::sigaction(SIGHUP, &action, nullptr);
}

} // namespace

Stop_Signals::Stop_Signals(Asked asked) : asked_(std::move(asked)) {
    if (::pipe2(pipe_.data(), O_NONBLOCK | O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), "A pipe for signals");
    writingEnd = pipe_[1];
    firstSignal = 0;
    notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { take(); });
    handleWith(noteSignal);
}

Stop_Signals::~Stop_Signals() {
    handleWith(SIG_DFL);
    notifier_.reset();
    for (const int end : pipe_)
        ::close(end);
}

const char* Stop_Signals::signal() const {
    switch (firstSignal.load()) {
    case SIGINT:
        return "SIGINT";
    case SIGTERM:
        return "SIGTERM";
    case SIGHUP:
        return "SIGHUP";
    default:
        return nullptr;
    }
}

void Stop_Signals::take() {
    char signal = 0;
    while (::read(pipe_[0], &signal, 1) > 0)
        asked_(std::exchange(stopping_, true) && signal == SIGINT);
}

} // namespace zorvane::ctl
