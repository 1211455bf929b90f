// SPDX-License-Identifier: MIT
#include "app/desktop/end_signals.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace zorvane::app {

namespace {

constexpr std::array endings = {SIGTERM, SIGINT, SIGHUP};

/// Where the handler writes to: all that it may do is little, and one of it is `write`.
std::atomic<int> writingEnd{-1};

void noteSignal(int /*signal*/) {
    const int saved = errno;
    const char byte = 0;
    // A full pipe holds a wish to end already.
    [[maybe_unused]] const auto written = ::write(writingEnd.load(), &byte, 1);
    errno = saved;
}

} // namespace

class End_Signals::Listener {
  public:
    explicit Listener(std::function<void()> asked) : asked_(std::move(asked)) {
        if (::pipe2(pipe_.data(), O_NONBLOCK | O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "A pipe for signals");
        writingEnd = pipe_[1];
        notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { take(); });
        for (std::size_t i = 0; i < endings.size(); ++i)
            handle(endings[i], before_[i]);
    }

    ~Listener() {
        for (std::size_t i = 0; i < endings.size(); ++i)
            ::sigaction(endings[i], &before_[i], nullptr);
        notifier_.reset();
        for (const int end : pipe_)
            ::close(end);
    }

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

  private:
    static void handle(int signal, struct sigaction& before) {
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN) return;
        struct sigaction action {};
        action.sa_handler = noteSignal;
        action.sa_flags = SA_RESTART;
        ::sigaction(signal, &action, nullptr);
    }

    void take() {
        std::array<char, 64> bytes{};
        while (::read(pipe_[0], bytes.data(), bytes.size()) > 0) {
        }
        asked_();
    }

    std::function<void()> asked_;
    std::array<int, 2> pipe_{-1, -1};
    std::array<struct sigaction, endings.size()> before_{};
    std::unique_ptr<QSocketNotifier> notifier_;
};

End_Signals::End_Signals(std::function<void()> asked)
    : listener_(std::make_unique<Listener>(std::move(asked))) {}

End_Signals::~End_Signals() = default;

} // namespace zorvane::app
