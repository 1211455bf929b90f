#include "ctl/stop_signals.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace zorvane {

namespace {

/// Where the handler writes to: all that it may do is little, and one of it is `write`.
std::atomic<int> writingEnd{-1};

void noteSignal(int /*signal*/) {
    const int saved = errno;
    const char byte = 0;
    // A full pipe holds a wish to stop already.
    [[maybe_unused]] const auto written = ::write(writingEnd.load(), &byte, 1);
    errno = saved;
}

void handleWith(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

} // namespace

Stop_Signals::Stop_Signals(std::function<void()> asked) : asked_(std::move(asked)) {
    if (::pipe2(pipe_.data(), O_NONBLOCK | O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), "A pipe for signals");
    writingEnd = pipe_[1];
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

void Stop_Signals::take() {
    std::array<char, 64> bytes{};
    while (::read(pipe_[0], bytes.data(), bytes.size()) > 0) {
    }
    asked_();
}

} // namespace zorvane
