// SPDX-License-Identifier: MIT
#include "simulator/line/line_server.h"

#include <sys/timerfd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <stdexcept>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace zorvane::simulator {

namespace {

/// A client that never waits for answers can't make the program grow without end.
constexpr std::size_t mostWaitingFrames = 256;

/// Kinds of descriptor in the order in which they are served: clients before their bytes, so that a new
/// client never gets what was meant for the one before.
enum Slot : std::size_t { Stop, Timer, Watch, Line, Slot_Count };

timespec toTimespec(Instant moment) {
    const auto since =
        std::chrono::duration_cast<std::chrono::nanoseconds>(moment.time_since_epoch()).count();
    return {since / 1'000'000'000, since % 1'000'000'000};
}

bool readable(const pollfd& entry) { return (entry.revents & (POLLIN | POLLERR | POLLHUP)) != 0; }

} // namespace

Line_Server::Line_Server(Line_Port& port, Line_Framing& framing, Controller& controller, Frame_Log& log,
                         Timing timing)
    : port_(port), framing_(framing), controller_(controller), log_(log), timing_(timing),
      queue_(timing.pace), timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (!timer_.open()) throw std::system_error(errno, std::generic_category(), "timer");
}

void Line_Server::run(int stopFd) {
    while (waitAndServe(stopFd)) {
    }
}

std::optional<Instant> Line_Server::nextMoment() const {
    std::optional<Instant> earliest;
    for (const auto& moment : {framing_.deadline(), queue_.nextDue(), plugInAt_, controller_.nextMoment()})
        if (moment && (!earliest || *moment < *earliest)) earliest = moment;
    return earliest;
}

void Line_Server::armTimer() {
    itimerspec setting{};
    if (const auto moment = nextMoment()) setting.it_value = toTimespec(*moment);
    if (::timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME, &setting, nullptr) != 0)
        throw std::system_error(errno, std::generic_category(), "timer");
}

bool Line_Server::waitAndServe(int stopFd) {
    armTimer();
    std::array<pollfd, Slot_Count> slots{};
    slots[Stop] = {stopFd, POLLIN, 0};
    slots[Timer] = {timer_.get(), POLLIN, 0};
    slots[Watch] = {port_.watchFd(), POLLIN, 0};
    slots[Line] = {port_.fd(), POLLIN, 0};
    if (::poll(slots.data(), slots.size(), -1) < 0 && errno != EINTR)
        throw std::system_error(errno, std::generic_category(), "poll");
    if (readable(slots[Stop])) return false;
    // Asked even when only the line is readable: a client's coming precedes its bytes.
    if (readable(slots[Watch]) || readable(slots[Line])) serveClients();
    if (readable(slots[Line])) receive();
    letTimePass();
    sendDue();
    handleArrivals();
    plugInWhenDue();
    return true;
}

void Line_Server::serveClients() {
    if (port_.watchFd() >= 0 && port_.clientsChanged()) forgetClient();
}

/// Nothing that is under way is meant for whoever comes next.
void Line_Server::forgetClient() {
    framing_.clear();
    queue_.clear();
}

void Line_Server::receive() {
    std::array<std::uint8_t, 1024> buffer{};
    const ssize_t got = ::read(port_.fd(), buffer.data(), buffer.size());
    if (got > 0) {
        framing_.feed(Bytes_View(buffer).first(static_cast<std::size_t>(got)),
                      std::chrono::steady_clock::now());
        return;
    }
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (port_.clientLeft()) return forgetClient();
    throw std::runtime_error("the line is gone" +
                             (got < 0 ? ": " + std::generic_category().message(errno) : ""));
}

void Line_Server::handleArrivals() {
    while (const auto arrival = framing_.next(std::chrono::steady_clock::now()))
        handle(*arrival);
    sendDue();
}

void Line_Server::handle(const Arrival& arrival) {
    const Instant now = std::chrono::steady_clock::now();
    if (!arrival.broken.empty()) {
        log_.frame({Direction::In, arrival.passed, {}, "", {}, arrival.broken}, now,
                   controller_.addressBase());
        return;
    }
    const std::int32_t base = controller_.addressBase(); // of the controller that the request met
    Reaction reaction = controller_.take(
        arrival.frame, now, [&](Bytes_View frame) { return framing_.enveloped(frame, arrival); });
    reaction.received.bytes = arrival.passed;
    log_.frame(reaction.received, now, base);
    for (const std::string& event : reaction.events)
        log_.event(event, now);
    if (reaction.powerOff) queue_.clear();
    for (Outgoing& outgoing : reaction.outgoing)
        schedule(arrival, std::move(outgoing));
    if (reaction.unplug) unplug(*reaction.unplug);
}

void Line_Server::schedule(const Arrival& arrival, Outgoing outgoing) {
    if (queue_.frames() >= mostWaitingFrames) return;
    const Instant start =
        outgoing.localEcho ? arrival.wireBegin
                           : arrival.wireEnd + timing_.pace.silence() + timing_.turnaround + outgoing.delay;
    queue_.add(std::move(outgoing.bytes), start, std::move(outgoing.record));
}

void Line_Server::sendDue() {
    const Instant now = std::chrono::steady_clock::now();
    const Send_Queue::Due due = queue_.take(now);
    // A client that doesn't read loses bytes once the terminal is full, as on a real line.
    if (!due.bytes.empty()) {
        [[maybe_unused]] const ::ssize_t taken = ::write(port_.fd(), due.bytes.data(), due.bytes.size());
    }
    for (const Frame_Record& record : due.finished)
        log_.frame(record, now, controller_.addressBase());
}

void Line_Server::unplug(std::chrono::milliseconds duration) {
    const Instant now = std::chrono::steady_clock::now();
    log_.event("unplugged", now);
    port_.unplug();
    forgetClient();
    plugInAt_ = now + duration;
}

void Line_Server::letTimePass() {
    const Instant now = std::chrono::steady_clock::now();
    for (const std::string& event : controller_.elapse(now))
        log_.event(event, now);
}

void Line_Server::plugInWhenDue() {
    const Instant now = std::chrono::steady_clock::now();
    if (!plugInAt_ || now < *plugInAt_) return;
    plugInAt_.reset();
    port_.plugIn();
    log_.event("plugged in", now);
}

} // namespace zorvane::simulator
