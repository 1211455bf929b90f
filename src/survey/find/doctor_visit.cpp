// SPDX-License-Identifier: MIT
#include "survey/find/doctor_visit.h"

#include "comm/modbus_control/line/network_port.h"

#include <utility>

namespace zorvane::survey {

namespace {

constexpr Micros listening = 1500 * microsPerMs;
constexpr int patience = 3;
/// After the first reads the line is listened to for a while: of two controllers with one number the slower
/// one would else pass for a quick answer to the next read.
constexpr int readsListenedAfter = 3;
constexpr Micros listeningAfterRead = 300 * microsPerMs;

} // namespace

Doctor_Visit::Doctor_Visit(Byte_Port& port, Link_Clock& clock, const Port_Settings& settings,
                           std::uint16_t address, Told told)
    : clock_(clock), settings_(settings), address_(address), doctor_(settings), told_(std::move(told)),
      alarm_(clock.makeAlarm([this] { ring(); })),
      ear_([this](const Heard_Frame& frame) { frameHeard(frame); }), probe_(port, clock, *this),
      line_(settings.line) {}

void Doctor_Visit::start(Done done) {
    done_ = std::move(done);
    alarm_->armAt(clock_.now());
}

void Doctor_Visit::cancel() {
    done_ = nullptr;
    phase_ = Phase::Ended;
    alarm_->disarm();
    probe_.close();
}

void Doctor_Visit::ring() {
    if (phase_ != Phase::Ended && probe_.opening()) return;
    switch (phase_) {
    case Phase::Idle:
        return open();
    case Phase::Listening:
        return endOfListening();
    case Phase::Asking:
        return next_ == Unit_Trial::Next::Ask ? ask() : endOfStep();
    case Phase::Ended:
        break;
    }
    probe_.close();
    if (const Done done = std::exchange(done_, nullptr)) done(diagnosis_);
}

void Doctor_Visit::open() {
    probe_.use(settings_, [this](const Port_Opening& opening) {
        if (phase_ == Phase::Ended) return;
        if (!opening.opened) return end(Link_Doctor::portFailed(opening.reason));
        phase_ = Phase::Listening;
        if (told_) told_("listening");
        // Over Modbus TCP nobody else is heard.
        const bool mayHear = !framingOf(settings_.port).numbersRequests();
        alarm_->armAt(clock_.now() + (mayHear ? listening : 0));
    });
}

void Doctor_Visit::endOfListening() {
    ear_.flush();
    if (phase_ == Phase::Ended) return;
    phase_ = Phase::Asking;
    beginStep();
}

void Doctor_Visit::beginStep() {
    const Doctor_Step& step = doctor_.step();
    outcome_ = {};
    ended_ = 0;
    if (told_) told_(stepWords(step, takesLineSettings(settings_.port)));
    trial_.emplace(step.reads, patience);
    next_ = Unit_Trial::Next::Ask;
    // Answers to the step before may still come, and would pass for quick ones.
    const Micros pause = step.shows == Ailment::TimeOut ? step.timeOut : 0;
    if (line_ == step.line) return alarm_->armAt(clock_.now() + pause);
    Port_Settings settings = settings_;
    settings.line = line_ = step.line;
    probe_.use(settings, [this, pause](const Port_Opening& opening) {
        if (phase_ == Phase::Ended) return;
        if (opening.lineRefused) return lineRefused();
        if (!opening.opened) return end(Link_Doctor::portFailed(opening.reason));
        alarm_->armAt(clock_.now() + pause);
    });
}

/// The server on the network has no such line, so no controller can have it either.
void Doctor_Visit::lineRefused() {
    outcome_.lineRefused = true;
    next_ = Unit_Trial::Next::NotThere;
    alarm_->armAt(clock_.now());
}

void Doctor_Visit::ask() {
    const Doctor_Step& step = doctor_.step();
    probe_.read(step.unit, address_, step.timeOut);
}

/// The port is still at work when it tells this, so whatever comes next waits for the event loop.
void Doctor_Visit::readEnded(const Try_Result& result) {
    if (phase_ != Phase::Asking) return;
    if (ended_++ == 0) outcome_.first = kindOf(result, settings_);
    outcome_.echoed = outcome_.echoed || result.echoed;
    Port_Settings port = settings_;
    port.line = line_;
    next_ = trial_->take(result, port);
    const bool listens = doctor_.step().shows == Ailment::None && trial_->times().count() > 0 &&
                         ended_ <= readsListenedAfter && !framingOf(settings_.port).numbersRequests();
    alarm_->armAt(clock_.now() + (listens ? listeningAfterRead : 0));
}

void Doctor_Visit::endOfStep() {
    ear_.flush();
    if (phase_ == Phase::Ended) return;
    outcome_.answered = trial_->isThere();
    outcome_.damaged = trial_->damaged();
    outcome_.times = trial_->times();
    doctor_.take(outcome_);
    if (doctor_.done()) return end(doctor_.diagnosis());
    beginStep();
}

void Doctor_Visit::bytesHeard(Micros at, Byte_View bytes) {
    if (!framingOf(settings_.port).numbersRequests()) ear_.take(bytes, at);
}

/// Outside the reads nobody should speak but the unit that was asked, once more.
void Doctor_Visit::frameHeard(const Heard_Frame& frame) {
    if (phase_ == Phase::Listening) {
        const auto request = findForeignRequest(frame.bytes, 0, true);
        const std::string whom = "Another master is on the line: unit " + std::to_string(frame.unit()) +
                                 " answers it. Let only one master use it.";
        return end(Link_Doctor::otherMaster(request ? foreignRequestText(*request) : whom));
    }
    const bool own = phase_ == Phase::Asking && frame.mayAnswer && frame.unit() == doctor_.step().unit;
    if (own && trial_ && trial_->times().count() > 0) ++outcome_.again;
}

void Doctor_Visit::otherMasterHeard(const Foreign_Request& foreign) {
    end(Link_Doctor::otherMaster(foreignRequestText(foreign)));
}

void Doctor_Visit::portLost(const std::string& reason) { end(Link_Doctor::portFailed(reason)); }

void Doctor_Visit::end(Diagnosis diagnosis) {
    if (phase_ == Phase::Ended) return;
    phase_ = Phase::Ended;
    diagnosis_ = std::move(diagnosis);
    alarm_->armAt(clock_.now());
}

} // namespace zorvane::survey
