// SPDX-License-Identifier: MIT
#include "survey/find/line_search.h"

#include "comm/modbus_control/frame/mbap_frame.h"
#include "comm/modbus_control/line/network_port.h"

#include <algorithm>
#include <utility>

namespace zorvane::survey {

namespace {

/// On a line that is noisy by itself, asking again and again shows nothing.
constexpr int littlePatience = 3;
/// So many units with nothing but damaged answers make a noisy line.
constexpr int damagedUnitsOfNoise = 3;
/// After so much silence nothing more belongs to a frame.
constexpr Micros frameEnds = 50 * microsPerMs;
/// A gateway that hasn't said for so long that a unit doesn't answer won't say it any more.
constexpr Micros patienceOfGateway = 3 * microsPerSecond;
/// An echo of a request comes no later than this.
constexpr Micros echoLasts = 2 * microsPerSecond;

std::string foreignFrameText(const Heard_Frame& frame) {
    if (const auto request = findForeignRequest(frame.bytes, 0, true); request && frame.mayAsk)
        return foreignRequestText(*request);
    return "Another master is on the line: unit " + std::to_string(frame.unit()) +
           (frame.mayAsk ? " is asked" : " answers it") + " (function " + std::to_string(frame.function()) +
           "). Let only one master use it.";
}

/// Whether a frame may be the answer to one of the search's own requests: a register, or a refusal.
bool mayBeOwnAnswer(const Heard_Frame& frame) {
    constexpr std::size_t oneRegister = 7;
    if (!frame.mayAnswer || frame.function() != 3) return false;
    return frame.isException() || frame.bytes.size() == oneRegister;
}

} // namespace

Line_Search::Line_Search(Byte_Port& port, Link_Clock& clock, Search_Plan plan, Told told)
    : clock_(clock), plan_(std::move(plan)), order_(plan_), told_(std::move(told)),
      alarm_(clock.makeAlarm([this] { ring(); })),
      ear_([this](const Heard_Frame& frame) { frameHeard(frame); }), probe_(port, clock, *this) {
    report_.linesCount = takesLineSettings(plan_.port.port);
}

void Line_Search::start(Done done) {
    done_ = std::move(done);
    startedAt_ = clock_.now();
    alarm_->armAt(startedAt_);
}

void Line_Search::ring() {
    if (phase_ != Phase::Ended && probe_.opening()) return;
    switch (phase_) {
    case Phase::Idle:
        return openFrom(0);
    case Phase::Listening:
        return endOfListening();
    case Phase::Searching:
        return trial_ ? goOn() : nextPoint();
    case Phase::Ended:
        break;
    }
    probe_.close();
    report_.requests = probe_.requests();
    report_.duration = clock_.now() - startedAt_;
    if (const Done done = std::exchange(done_, nullptr)) done(report_);
}

// Listening.

void Line_Search::openFrom(std::size_t line) {
    if (line == plan_.lines.size()) return end(Search_End::PortFailed);
    useLine(line, plan_.lines[line].probed(), [this, line](bool opened) {
        if (!opened) return openFrom(line + 1);
        plan_.listen > 0 ? listen() : search();
    });
}

void Line_Search::listen() {
    phase_ = Phase::Listening;
    heardBefore_ = heard_;
    tell(0);
    alarm_->armAt(clock_.now() + plan_.listen);
}

/// Bytes that make no frame may be frames at other settings, so those are listened to as well before anything
/// is sent.
void Line_Search::endOfListening() {
    ear_.flush();
    if (phase_ == Phase::Ended) return;
    if (heard_ == heardBefore_) return search();
    report_.noisy = true;
    listenFrom(line_ + 1);
}

void Line_Search::listenFrom(std::size_t line) {
    if (line == plan_.lines.size()) return search();
    useLine(line, plan_.lines[line].probed(),
            [this, line](bool opened) { opened ? listen() : listenFrom(line + 1); });
}

// Asking.

void Line_Search::search() {
    phase_ = Phase::Searching;
    nextPoint();
}

/// A gateway takes requests faster than its line does: the next one waits until those before are answered, or
/// nothing comes any more.
bool Line_Search::waitsForAnswers() {
    const Micros until = heardAt_ + patienceOfGateway;
    if (!slow_ || unanswered_ == 0 || clock_.now() >= until) return false;
    alarm_->armAt(until);
    return true;
}

void Line_Search::nextPoint() {
    if (waitsForAnswers()) return;
    if (!late_.empty()) {
        const Probe_Point point = late_.front();
        late_.pop_front();
        return begin(point, true);
    }
    if (const auto point = order_.next()) return begin(*point, false);
    const bool slowOnes = report_.found.empty() || anyLate_;
    if (!slowOnes || std::exchange(lingered_, true)) return end(Search_End::Searched);
    alarm_->armAt(clock_.now() + plan_.longTimeOut); // the last one may be one of them
}

void Line_Search::begin(const Probe_Point& point, bool late) {
    const Line_Candidate& candidate = plan_.lines[point.line];
    const bool asItIs = lineKept_ || (point.line == line_ && settings_ == candidate.probed());
    if (asItIs) return beginTrial(point, late);
    stopBits_ = Stop_Bits::Probing;
    useLine(point.line, candidate.probed(), [this, point, late](bool opened) {
        if (opened) return beginTrial(point, late);
        order_.leaveOutLine(point.line);
        alarm_->armAt(clock_.now());
    });
}

void Line_Search::beginTrial(const Probe_Point& point, bool late) {
    point_ = point;
    patient_ = late;
    trial_.emplace(plan_.reads, patience());
    answersHeard_ = 0;
    ask();
}

void Line_Search::ask() {
    endFrames();
    tell(point_.unit);
    units_[point_.unit].askedAt = clock_.now();
    if (framingOf(plan_.port.port).numbersRequests()) ++unanswered_;
    probe_.read(point_.unit, point_.address, patient_ ? plan_.longTimeOut : plan_.timeOut);
}

/// The port is still at work when it tells this, so whatever comes next waits for the event loop.
void Line_Search::readEnded(const Try_Result& result) {
    if (phase_ != Phase::Searching || !trial_) return;
    units_[point_.unit].tried = point_;
    Port_Settings port = plan_.port;
    port.line = settings_;
    report_.gateway = report_.gateway || kindOf(result, port) == Try_Kind::Gateway;
    next_ = trial_->take(result, port);
    alarm_->armAt(clock_.now());
    bytesHeard(clock_.now(), result.received);
}

void Line_Search::goOn() {
    switch (next_) {
    case Unit_Trial::Next::Found:
        return found();
    case Unit_Trial::Next::NotThere:
        return giveUp();
    case Unit_Trial::Next::Ask:
        break;
    }
    const auto other = otherStopBits();
    if (!other) return ask();
    useLine(line_, *other, [this](bool opened) { opened ? ask() : end(Search_End::PortFailed); });
}

/// A controller that answers with two stop bits is asked with those that are told for it; one that needs two
/// falls silent then.
std::optional<Line_Settings> Line_Search::otherStopBits() {
    const Line_Candidate& candidate = plan_.lines[line_];
    if (lineKept_ || candidate.line == candidate.probed()) return std::nullopt;
    const bool answers = trial_->times().count() > 0;
    if (stopBits_ == Stop_Bits::Probing && answers) {
        stopBits_ = Stop_Bits::AsNamed;
        return candidate.line;
    }
    if (stopBits_ == Stop_Bits::AsNamed && trial_->silentInARow() > 1) {
        stopBits_ = Stop_Bits::Two;
        return candidate.probed();
    }
    return std::nullopt;
}

void Line_Search::found() {
    endFrames();
    if (answersHeard_ > trial_->times().count())
        trial_->answeredAgain(static_cast<std::int32_t>(answersHeard_ - trial_->times().count()));
    report_.found.push_back({point_.unit, lineTold(), trial_->times(), trial_->damaged()});
    std::erase_if(report_.doubtful, [this](const Doubtful_Unit& each) { return each.unit == point_.unit; });
    lineKept_ = true;
    order_.keep(line_);
    order_.leaveOutUnit(point_.unit);
    units_[point_.unit].known = true;
    trial_.reset();
    nextPoint();
}

void Line_Search::giveUp() {
    endFrames();
    const bool answeredLate = answersHeard_ > 0 && trial_->times().count() == 0;
    if (trial_->damaged() > 0) ++damagedUnits_;
    addDoubt();
    if (patient_) units_[point_.unit].known = true;
    trial_.reset();
    if (answeredLate) lateAnswer(point_.unit);
    nextPoint();
}

/// Of a unit that is tried with several registers the last one counts.
void Line_Search::addDoubt() {
    const bool unlike = !trial_->mostlyDamaged() && trial_->times().count() > 1;
    if (!trial_->mostlyDamaged() && !unlike) return;
    std::erase_if(report_.doubtful, [this](const Doubtful_Unit& each) { return each.unit == point_.unit; });
    report_.doubtful.push_back({point_.unit, lineTold(), trial_->damaged(), unlike});
}

Line_Settings Line_Search::lineTold() const {
    const Line_Candidate& candidate = plan_.lines[line_];
    return stopBits_ == Stop_Bits::Two ? candidate.probed() : candidate.line;
}

int Line_Search::patience() const {
    return report_.noisy || damagedUnits_ >= damagedUnitsOfNoise ? littlePatience : Unit_Trial::usualPatience;
}

void Line_Search::useLine(std::size_t line, const Line_Settings& settings,
                          std::function<void(bool opened)> then) {
    Port_Settings port = plan_.port;
    port.line = settings;
    line_ = line;
    settings_ = settings;
    probe_.use(port, [this, then = std::move(then)](const Port_Opening& opening) {
        if (phase_ == Phase::Ended) return;
        const bool unreachable = !opening.opened && onNetwork(plan_.port.port) && !opening.lineRefused;
        if (!opening.opened && (unreachable || report_.reason.empty())) report_.reason = opening.reason;
        unreachable ? end(Search_End::PortFailed) : then(opening.opened);
    });
}

void Line_Search::tell(std::uint8_t unit) const {
    if (told_)
        told_({settings_, report_.linesCount, unit, order_.given(), order_.left(), report_.found.size()});
}

// What is heard beside the answers.

void Line_Search::bytesHeard(Micros at, Byte_View bytes) {
    if (bytes.empty()) return;
    heardAt_ = at;
    heard_ += bytes.size();
    if (framingOf(plan_.port.port).numbersRequests()) return numberedHeard(bytes);
    ear_.take(bytes, at);
}

/// On a connection of its own nobody else is heard; late answers are.
void Line_Search::numberedHeard(Byte_View bytes) {
    for (auto frame = nextMbapFrame(bytes); frame && !frame->body.empty();
         frame = nextMbapFrame(bytes, frame->offset + frame->length)) {
        const std::uint8_t unit = frame->body[0];
        if (phase_ != Phase::Searching || units_[unit].askedAt == 0) continue;
        if (unanswered_ > 0) --unanswered_;
        if (!trial_ || unit != point_.unit) lateByNumber(unit);
        const bool ofGateway = frame->body[1] == (exceptionBit | 3U) && isGatewayException(frame->body[2]);
        if (!ofGateway) ownAnswerHeard(unit);
    }
}

/// The first late answer shows how long one takes: those after it wait for each other.
void Line_Search::lateByNumber(std::uint8_t unit) {
    if (!trial_ && !probe_.opening()) alarm_->armAt(clock_.now());
    if (std::exchange(slow_, true)) return;
    const Micros took = clock_.now() - units_[unit].askedAt;
    plan_.timeOut = std::clamp(2 * took, plan_.timeOut, patienceOfGateway);
    plan_.longTimeOut = std::max(plan_.longTimeOut, plan_.timeOut);
}

/// A frame that has begun may go on in the next read; one that fell silent is over.
void Line_Search::endFrames() {
    if (clock_.now() - heardAt_ > frameEnds) ear_.flush();
}

void Line_Search::frameHeard(const Heard_Frame& frame) {
    if (phase_ == Phase::Listening) return foreignMaster(foreignFrameText(frame));
    if (mayBeOwnAnswer(frame)) return ownAnswerHeard(frame.unit());
    const auto request = findForeignRequest(frame.bytes, 0, true);
    if (!request || !isEcho(*request)) foreignMaster(foreignFrameText(frame));
}

void Line_Search::ownAnswerHeard(std::uint8_t unit) {
    if (!trial_ || unit != point_.unit) return lateAnswer(unit);
    ++answersHeard_;
}

void Line_Search::lateAnswer(std::uint8_t unit) {
    Memory& memory = units_[unit];
    if (!memory.tried)
        return foreignMaster("Another master is on the line: unit " + std::to_string(unit) +
                             " answers it (function 3). Let only one master use it.");
    if (memory.known) return;
    memory.known = anyLate_ = true;
    late_.push_back(*memory.tried);
    if (!trial_ && !probe_.opening()) alarm_->armAt(clock_.now());
}

void Line_Search::otherMasterHeard(const Foreign_Request& foreign) {
    if (!isEcho(foreign)) foreignMaster(foreignRequestText(foreign));
}

/// A copy of one of the search's own requests.
bool Line_Search::isEcho(const Foreign_Request& foreign) const {
    const Rtu_Request& request = foreign.request;
    const bool own =
        foreign.function == 3 && request.count == 1 &&
        std::find(plan_.addresses.begin(), plan_.addresses.end(), request.address) != plan_.addresses.end();
    const Micros askedAt = units_[request.unit].askedAt;
    return own && askedAt != 0 && clock_.now() - askedAt < echoLasts;
}

void Line_Search::foreignMaster(std::string text) {
    if (phase_ == Phase::Ended) return;
    report_.foreignMaster = std::move(text);
    end(Search_End::ForeignMaster);
}

void Line_Search::portLost(const std::string& reason) {
    report_.reason = reason;
    end(Search_End::PortFailed);
}

void Line_Search::end(Search_End how) {
    if (phase_ == Phase::Ended) return;
    phase_ = Phase::Ended;
    report_.end = how;
    alarm_->armAt(clock_.now());
}

} // namespace zorvane::survey
