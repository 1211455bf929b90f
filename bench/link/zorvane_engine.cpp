// SPDX-License-Identifier: MIT
#include "bench/link/zorvane_engine.h"

#include <stdexcept>
#include <utility>

namespace zorvane::bench {

namespace {

constexpr Micros timeOut = 2 * microsPerSecond;

} // namespace

Zorvane_Engine::Zorvane_Engine(const std::string& device, const Wire& wire)
    : transaction_(port_, clock_, *this) {
    Port_Settings settings;
    settings.port = device;
    settings.line = wire.line();
    const Port_Opening opening = port_.open(device, settings);
    if (!opening.opened) throw std::runtime_error(device + ": " + opening.reason);
    transaction_.setLine(settings);
    transaction_.setWaits(0, timeOut);
    transaction_.lineOpened();
}

std::vector<double> Zorvane_Engine::exchange(const Rtu_Request& request, int count) {
    request_ = request;
    remaining_ = count;
    times_.clear();
    fault_.clear();
    submit();
    loop_.exec();
    if (!fault_.empty()) throw std::runtime_error("Zorvane: " + fault_);
    return std::exchange(times_, {});
}

void Zorvane_Engine::submit() {
    handedOver_ = std::chrono::steady_clock::now();
    transaction_.submit(request_);
}

void Zorvane_Engine::tryFinished(const Try_Result& result) {
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - handedOver_;
    times_.push_back(took.count());
    fault_ = faultOf(result);
    if (!fault_.empty() || --remaining_ == 0)
        loop_.quit();
    else
        submit();
}

void Zorvane_Engine::strayReceived(Micros, const Byte_Array&, const std::string& what) { fault_ = what; }

std::string Zorvane_Engine::faultOf(const Try_Result& result) {
    if (!result.answer) return result.fault;
    if (result.answer->exception) return "exception " + std::to_string(*result.answer->exception);
    int address = result.request.address;
    for (const std::uint16_t value : result.answer->registers)
        if (value != expectedValue(address++)) return "a wrong value";
    return {};
}

} // namespace zorvane::bench
