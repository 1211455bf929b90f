// SPDX-License-Identifier: MIT
#include "survey/listen/line_listener.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace zorvane::survey {

namespace {

constexpr Micros never = std::numeric_limits<Micros>::max();

/// After so much silence nothing more belongs to what came in: a frame of the greatest length would be over,
/// and adapters hand bytes over in parcels up to 16 ms apart.
Micros longestPause(const Line_Settings& line) { return wireTime(line, largestFrame) + 100 * microsPerMs; }

} // namespace

Line_Listener::Line_Listener(Listening_Port& port, Link_Clock& clock, Listening_Plan plan, Heard heard)
    : port_(port), clock_(clock), plan_(std::move(plan)), heard_(std::move(heard)),
      alarm_(clock.makeAlarm([this] { ring(); })),
      finder_([this](const Heard_Frame& frame) { frameHeard(frame); }),
      exchanges_([this](const Heard_Exchange& exchange) { report_.table.take(exchange); }) {
    port_.setListener(this);
}

Line_Listener::~Line_Listener() { port_.setListener(nullptr); }

void Line_Listener::start(Done done) {
    done_ = std::move(done);
    startedAt_ = clock_.now();
    const Port_Opening opening = port_.open(plan_.port, plan_.line);
    report_.opened = opening.opened;
    report_.reason = opening.reason;
    ended_ = !opening.opened;
    arm();
}

void Line_Listener::stop() {
    ended_ = true;
    arm();
}

Micros Line_Listener::endTime() const { return plan_.duration ? startedAt_ + *plan_.duration : never; }

void Line_Listener::arm() {
    if (ended_) return alarm_->armAt(clock_.now());
    const Micros quiet = finder_.waits() ? lastByteAt_ + longestPause(plan_.line) : never;
    const Micros next = std::min(quiet, endTime());
    if (next == never) return alarm_->disarm();
    alarm_->armAt(next);
}

/// A program that was busy finds its alarm and bytes waiting, and the bytes may have come in time.
void Line_Listener::ring() {
    if (report_.opened && report_.reason.empty()) take(port_.takeInput());
    const Micros now = clock_.now();
    if (ended_ || now >= endTime()) return finish();
    if (finder_.waits() && now >= lastByteAt_ + longestPause(plan_.line)) finder_.flush();
    arm();
}

void Line_Listener::finish() {
    ended_ = true;
    if (report_.opened) port_.close();
    finder_.flush();
    exchanges_.end();
    count();
    alarm_->disarm();
    if (const Done done = std::exchange(done_, nullptr)) done(report_);
}

void Line_Listener::count() {
    report_.bytes = finder_.bytesTaken();
    report_.noiseBytes = finder_.noiseBytes();
    report_.duration = clock_.now() - startedAt_;
}

const Listening_Report& Line_Listener::reportSoFar() {
    if (!ended_) count();
    return report_;
}

void Line_Listener::bytesArrived(Byte_View bytes) {
    take(bytes);
    arm();
}

void Line_Listener::take(Byte_View bytes) {
    if (bytes.empty()) return;
    lastByteAt_ = clock_.now();
    finder_.take(bytes, lastByteAt_);
}

void Line_Listener::frameHeard(const Heard_Frame& frame) {
    if (plan_.frames && report_.frames >= *plan_.frames) return;
    ++report_.frames;
    if (heard_) heard_(frame);
    exchanges_.take(frame);
    if (plan_.frames && report_.frames >= *plan_.frames) ended_ = true;
}

void Line_Listener::portLost(const std::string& reason) {
    report_.reason = reason;
    stop();
}

} // namespace zorvane::survey
