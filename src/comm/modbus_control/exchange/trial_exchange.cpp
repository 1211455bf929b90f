// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/trial_exchange.h"

#include <utility>

namespace zorvane {

Rtu_Request Trial_Request::frame() const {
    return readRequest(static_cast<std::uint8_t>(settings.slave), wireAddress, 1);
}

Trial_Exchange::Trial_Exchange(Byte_Port& port, Link_Clock& clock)
    : port_(port), clock_(clock), transaction_(port, clock, *this),
      end_(clock.makeAlarm([this] { ring(); })) {}

Trial_Exchange::~Trial_Exchange() { cancel(); }

void Trial_Exchange::start(const Trial_Request& request, Done done) {
    done_ = std::move(done);
    report_ = {};
    request_ = request;
    transaction_.setLine(request.settings);
    transaction_.setWaits(0, request.timeOutMs * microsPerMs);
    report_.opening = port_.open(request.settings.port, request.settings);
    if (!report_.opening.goesOn) ask();
}

void Trial_Exchange::openingEnded(const Port_Opening& opening) {
    report_.opening = opening;
    ask();
}

void Trial_Exchange::ask() {
    if (!report_.opening.opened) return end_->armAt(clock_.now());
    transaction_.lineOpened();
    transaction_.submit(request_.frame());
}

void Trial_Exchange::cancel() {
    done_ = nullptr;
    end_->disarm();
    transaction_.abandon();
    port_.close();
}

/// The port is still at work when it tells this, so the end waits for the event loop.
void Trial_Exchange::tryFinished(const Try_Result& result) {
    if (!report_.exchange) report_.exchange = result;
    end_->armAt(clock_.now());
}

void Trial_Exchange::ring() {
    const Done done = std::exchange(done_, nullptr);
    port_.close();
    if (done) done(report_);
}

} // namespace zorvane
