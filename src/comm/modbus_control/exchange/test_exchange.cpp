#include "comm/modbus_control/exchange/test_exchange.h"

#include <utility>

namespace zorvane {

Rtu_Request Test_Request::frame() const {
    return readRequest(static_cast<std::uint8_t>(settings.slave), wireAddress, 1);
}

Test_Exchange::Test_Exchange(Byte_Port& port, Link_Clock& clock)
    : port_(port), clock_(clock), transaction_(port, clock, *this),
      end_(clock.makeAlarm([this] { ring(); })) {}

Test_Exchange::~Test_Exchange() { cancel(); }

void Test_Exchange::start(const Test_Request& request, Done done) {
    done_ = std::move(done);
    report_ = {};
    transaction_.setLine(request.settings);
    transaction_.setWaits(0, request.timeOutMs * microsPerMs);
    report_.opening = port_.open(request.settings.port, request.settings);
    if (!report_.opening.opened) return end_->armAt(clock_.now());
    transaction_.lineOpened();
    transaction_.submit(request.frame());
}

void Test_Exchange::cancel() {
    done_ = nullptr;
    end_->disarm();
    transaction_.abandon();
    port_.close();
}

/// The port is still at work when it tells this, so the end waits for the event loop.
void Test_Exchange::tryFinished(const Try_Result& result) {
    if (!report_.exchange) report_.exchange = result;
    end_->armAt(clock_.now());
}

void Test_Exchange::ring() {
    const Done done = std::exchange(done_, nullptr);
    port_.close();
    if (done) done(report_);
}

} // namespace zorvane
