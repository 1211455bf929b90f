// SPDX-License-Identifier: MIT
#include "survey/find/read_probe.h"

#include <utility>

namespace zorvane::survey {

Read_Probe::Read_Probe(Byte_Port& port, Link_Clock& clock, Probe_Listener& listener)
    : port_(port), clock_(clock), listener_(listener), transaction_(port, clock, *this),
      alarm_(clock.makeAlarm([this] { used(opening_); })) {}

void Read_Probe::use(const Port_Settings& settings, Used then) {
    then_ = std::move(then);
    transaction_.abandon();
    transaction_.setLine(settings);
    const Port_Opening opening = changeOrOpen(settings);
    if (!opening.goesOn) used(opening);
}

Port_Opening Read_Probe::changeOrOpen(const Port_Settings& settings) {
    if (port_.isOpen()) {
        const Line_Change change = port_.changeLine(settings.line);
        if (change == Line_Change::Done) return {true, {}, {}};
        if (change == Line_Change::GoesOn) return {false, {}, {}, true};
        port_.close();
    }
    return port_.open(settings.port, settings);
}

/// The port is still at work when it tells this, so whatever comes next waits for the event loop.
void Read_Probe::openingEnded(const Port_Opening& opening) {
    if (!then_) return;
    opening_ = opening;
    alarm_->armAt(clock_.now());
}

void Read_Probe::used(const Port_Opening& opening) {
    if (opening.opened) transaction_.lineOpened();
    if (const Used then = std::exchange(then_, nullptr)) then(opening);
}

void Read_Probe::close() {
    then_ = nullptr;
    alarm_->disarm();
    transaction_.abandon();
    port_.close();
}

void Read_Probe::read(std::uint8_t unit, std::uint16_t address, Micros timeOut) {
    transaction_.setWaits(0, timeOut);
    transaction_.submit(readRequest(unit, address, 1));
}

/// A try that the port's end cut short is told by that end.
void Read_Probe::tryFinished(const Try_Result& result) {
    if (!result.portLost) listener_.readEnded(result);
}

void Read_Probe::strayReceived(Micros at, const Byte_Array& bytes, const std::string& /*what*/) {
    listener_.bytesHeard(at, bytes);
}

void Read_Probe::otherMasterHeard(Micros /*at*/, const Foreign_Request& foreign) {
    listener_.otherMasterHeard(foreign);
}

void Read_Probe::lineLost(const std::string& reason) { listener_.portLost(reason); }

} // namespace zorvane::survey
