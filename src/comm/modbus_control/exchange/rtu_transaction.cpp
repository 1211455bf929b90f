// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/rtu_transaction.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

/// After a damaged answer the line must be silent this long: a USB adapter hands bytes over in parcels up to
/// 16 ms apart.
constexpr Micros damagedSettle = 20 * microsPerMs;
/// After any failed try the next request waits for at least this much silence.
constexpr Micros failedQuiet = 5 * microsPerMs;
/// An answer in fewer pieces doesn't show at what pace the line delivers.
constexpr std::size_t tellingPieces = 8;
/// The two ends' clocks may differ: a wait for bytes is shorter than reckoned by one part in so many.
constexpr Micros clockTolerance = 32;
/// The last bytes before an answer can be whole are told one by one, so that a wait that ends late delays
/// nothing. One of them may be on the point of coming in anyway.
constexpr std::size_t toldSingly = 3;
/// Of a line that babbles, this much is kept for the monitor.
constexpr std::size_t receivedLimit = 4096;

} // namespace

Rtu_Transaction::Rtu_Transaction(Byte_Port& port, Link_Clock& clock, Transaction_Listener& listener)
    : port_(port), clock_(clock), listener_(listener), alarm_(clock.makeAlarm([this] { ring(); })) {
    port_.setListener(this);
    setLine(settings_);
}

Rtu_Transaction::~Rtu_Transaction() { port_.setListener(nullptr); }

void Rtu_Transaction::setLine(const Port_Settings& settings, const Framing& framing) {
    if (settings.port != settings_.port || !(settings.line == settings_.line))
        learntEcho_ = learntPace_ = learntFast_ = writeDoubled_ = false;
    settings_ = settings;
    framing_ = &framing;
    silence_ = onLine() ? frameSilence(settings.line) : 0;
    quiet_ = std::max(quiet_, silence_);
}

void Rtu_Transaction::setWaits(Micros pause, Micros timeOut) {
    pause_ = pause;
    timeOut_ = timeOut;
}

void Rtu_Transaction::lineOpened() {
    lastActivity_ = clock_.now();
    quiet_ = silence_;
    learntPace_ = learntFast_ = false;
}

void Rtu_Transaction::submit(Rtu_Request request, Line_Care care) {
    result_ = Try_Result{};
    result_.request = std::move(request);
    giveNumber();
    searchFrom_ = 0;
    pieces_ = 0;
    letInputCome_ = false;
    care_ = care;
    quietLimit_ = clock_.now() + 2 * timeOutsUntilOver * timeOut_;
    listenUntil_ = 0;
    foreignAt_.reset();
    foreignEnd_ = 0;
    state_ = State::Gap;
    late_.forgetPast(clock_.now());
    latestSend_ = std::max(clock_.now(), lastActivity_ + quiet_ + pause_) + timeOut_;
    armForState();
}

void Rtu_Transaction::giveNumber() {
    if (onLine()) return;
    if (++lastNumber_ == 0) ++lastNumber_; // which stands for none
    result_.request.number = lastNumber_;
}

bool Rtu_Transaction::withdraw() {
    if (state_ != State::Gap && state_ != State::Lead) return false;
    lowerRts();
    state_ = State::Idle;
    armForState();
    return true;
}

void Rtu_Transaction::abandon() {
    if (state_ == State::Idle || withdraw()) return;
    lowerRts();
    if (onLine())
        late_.expectOnLine(result_.request, deadline_, deadline_ + timeOut_, whenOver());
    else
        late_.expect(result_.request, deadline_ + timeOut_, whenOver());
    state_ = State::Idle;
    armForState();
}

// Time.

Micros Rtu_Transaction::timeOnLine(std::size_t bytes) const {
    return onLine() ? wireTime(settings_.line, bytes) : 0;
}

Micros Rtu_Transaction::settleTime() const { return std::max(silence_, damagedSettle); }

Micros Rtu_Transaction::sendTime() const {
    const Micros quiet = std::min(lastActivity_ + quiet_ + pause_, latestSend_);
    const Micros held = std::max(quiet, late_.heldUntil(result_.request));
    if (care_ == Line_Care::Usual) return held;
    return std::max(held, late_.confusableUntil(result_.request));
}

/// When the answer can be whole at the earliest; 0 for now.
Micros Rtu_Transaction::earliestAnswer() const {
    const auto start = searchStart();
    if (state_ != State::Wait || !learntPace_ || !start || listenUntil_ != 0) return 0;
    const std::size_t missing = leastMissing(result_.request, receivedBytes(), *start);
    const Micros characters = wireTime(settings_.line, missing - std::min(missing, toldSingly));
    const Micros whole = std::max(clock_.now(), txEnd_) + characters - characters / clockTolerance;
    // Whether an answer has begun must be known at the deadline.
    return std::min(whole, deadline_ - settleTime() / 2);
}

/// A wake-up for each byte of a slow line costs more than all the rest.
void Rtu_Transaction::hintPort() { port_.tellNotBefore(earliestAnswer()); }

void Rtu_Transaction::armForState() {
    hintPort();
    switch (state_) {
    case State::Idle:
        if (stray_.empty()) return alarm_->disarm();
        return alarm_->armAt(lastActivity_ + settleTime());
    case State::Gap:
        if (stray_.empty()) return alarm_->armAt(std::min(sendTime(), quietLimit_));
        return alarm_->armAt(std::min(sendTime(), lastActivity_ + settleTime()));
    case State::Lead:
        return alarm_->armAt(leadEnd_);
    case State::Wait:
        if (rtsRaised_) return alarm_->armAt(txEnd_);
        return alarm_->armAt(listenUntil_ != 0 ? listenUntil_ : deadline_);
    case State::Settle:
        return alarm_->armAt(rtsRaised_ ? txEnd_ : std::min(lastActivity_ + settleTime(), settleLimit_));
    }
}

/// A program that was busy finds its alarm and the answer waiting, and the answer may have come in time.
bool Rtu_Transaction::inputComesFirst(Micros now) {
    const bool atEnd = (state_ == State::Wait && now >= deadline_) || state_ == State::Settle;
    if (!atEnd || letInputCome_ || !port_.hasInput()) return false;
    letInputCome_ = true;
    hintPort();
    alarm_->armAt(now);
    return true;
}

void Rtu_Transaction::ring() {
    const Micros now = clock_.now();
    if (inputComesFirst(now)) return;
    switch (state_) {
    case State::Idle:
    case State::Gap:
        return ringInGap(now);
    case State::Lead:
        return send();
    case State::Wait:
        return ringInWait(now);
    case State::Settle:
        return ringInSettle(now);
    }
}

void Rtu_Transaction::ringInGap(Micros now) {
    if (!stray_.empty() && now >= lastActivity_ + settleTime()) {
        late_.lineFree();
        tellUnexplained();
    }
    if (state_ != State::Gap) return armForState();
    if (now >= sendTime()) {
        const Byte_Array waiting = port_.discardInput();
        if (waiting.empty()) return lead();
        return bytesArrived(waiting);
    }
    if (now >= quietLimit_) return giveUpWaiting();
    armForState();
}

void Rtu_Transaction::ringInWait(Micros now) {
    if (now >= txEnd_) lowerRts();
    if (listenUntil_ != 0 && now >= listenUntil_) {
        listenUntil_ = now;
        return evaluate();
    }
    if (now >= deadline_) return atDeadline();
    armForState();
}

void Rtu_Transaction::ringInSettle(Micros now) {
    if (now >= txEnd_) lowerRts();
    const bool babbling = now >= settleLimit_;
    if (!babbling && now < lastActivity_ + settleTime()) return armForState();
    if (const auto start = searchStart()) {
        const Finding finding = framing_->find(result_.request, receivedBytes(), *start);
        const bool found = finding.verdict == Finding::Verdict::Found;
        if (found && !afterOtherMaster(finding)) return succeed(finding);
    }
    const bool damaged = faultOfAnswer() == Answer_Fault::BadCrc;
    fail(faultNow() + (babbling ? ", and the line doesn't fall silent" : ""), !damaged);
}

// Sending.

void Rtu_Transaction::lead() {
    if (settings_.rts == Rts_Mode::HighOnSend) {
        port_.setRts(true);
        rtsRaised_ = true;
    }
    const bool kernelDelays = settings_.rts == Rts_Mode::KernelRs485;
    if (settings_.txDelayMs <= 0 || kernelDelays) return send();
    state_ = State::Lead;
    leadEnd_ = clock_.now() + settings_.txDelayMs * microsPerMs;
    armForState();
}

void Rtu_Transaction::send() {
    const State before = state_;
    const Byte_Array waiting = port_.discardInput();
    stray_.insert(stray_.end(), waiting.begin(), waiting.end());
    ahead_ = stray_;
    earFrom_ = std::min(strayFrom_, ahead_.size());
    if (!stray_.empty()) tellUnexplained();
    if (state_ != before) return; // whoever was told has taken the request back
    result_.sent = framing_->encode(result_.request);
    lastSent_ = result_.sent;
    late_.sent(result_.request);
    result_.startedAt = clock_.now();
    if (!port_.write(result_.sent)) {
        result_.sent.clear();
        port_.close();
        return portLost("The port took no bytes: the adapter is gone or doesn't work.");
    }
    const bool kernelDelays = settings_.rts == Rts_Mode::KernelRs485;
    const Micros delay = kernelDelays ? settings_.txDelayMs * microsPerMs : 0;
    txEnd_ = result_.startedAt + delay + timeOnLine(result_.sent.size());
    deadline_ = txEnd_ + timeOut_;
    lastActivity_ = txEnd_;
    state_ = State::Wait;
    armForState();
    listener_.requestSent();
}

void Rtu_Transaction::lowerRts() {
    if (!rtsRaised_) return;
    rtsRaised_ = false;
    if (port_.isOpen()) port_.setRts(false);
}

// Receiving.

void Rtu_Transaction::bytesArrived(Byte_View bytes) {
    lastActivity_ = std::max(lastActivity_, clock_.now());
    if (state_ != State::Wait && state_ != State::Settle) return takeStray(bytes);
    letInputCome_ = false;
    if (pieces_++ == 0) firstByteAt_ = clock_.now();
    result_.received.insert(result_.received.end(), bytes.begin(), bytes.end());
    hearOtherMasterInTry();
    evaluate();
    if (state_ == State::Wait) hintPort();
    if (result_.received.size() <= receivedLimit || idle()) return;
    const auto surplus = static_cast<std::ptrdiff_t>(result_.received.size() - largestFrame);
    result_.received.erase(result_.received.begin(), result_.received.begin() + surplus);
    searchFrom_ = 0;
    ahead_.clear();
    earFrom_ = 0;
    if (foreignAt_) foreignAt_ = foreignEnd_ = 0;
}

/// Where the adapter's copy of the request ends.
std::optional<std::size_t> Rtu_Transaction::endOfEchoIn(Byte_View bytes, std::size_t from) const {
    return onLine() ? endOfEcho(result_.sent, bytes, from) : std::nullopt;
}

std::optional<std::size_t> Rtu_Transaction::searchStart() const {
    // The answer to function 6 is the request over again. Only where the adapter is known to echo can the
    // first copy be told from it.
    const bool answerIsEcho = result_.request.function == Function_Code::PresetSingleRegister;
    if (!onLine() || (answerIsEcho && !expectsEcho())) return searchFrom_;
    const auto echoEnd = endOfEchoIn(receivedBytes(), searchFrom_);
    if (echoEnd) return echoEnd;
    if (answerIsEcho) return std::nullopt;
    return searchFrom_;
}

void Rtu_Transaction::evaluate() {
    const auto start = searchStart();
    if (!start) return;
    const Finding finding = framing_->find(result_.request, receivedBytes(), *start);
    const bool found = finding.verdict == Finding::Verdict::Found && !afterOtherMaster(finding);
    if (found && finding.answer.exception && late_.exceptionAmbiguous(result_.request, clock_.now())) {
        searchFrom_ = finding.offset + finding.length;
        return evaluate();
    }
    if (found && !finding.partial) return listenOrSucceed(finding);
    if (skipLateAnswer()) return evaluate();
    if (found || finding.verdict == Finding::Verdict::Damaged) settle();
}

void Rtu_Transaction::settle() {
    if (state_ == State::Settle) return;
    state_ = State::Settle;
    settleLimit_ = std::max(clock_.now(), txEnd_) + timeOnLine(largestFrame) + 2 * settleTime();
    armForState();
}

void Rtu_Transaction::atDeadline() {
    // An answer that has begun may end: the time-out is about a slave that doesn't speak.
    const auto start = foreignAt_ ? std::nullopt : searchStart();
    const bool fresh = clock_.now() < lastActivity_ + settleTime();
    if (start && framing_->find(result_.request, receivedBytes(), *start).partial && fresh) return settle();
    fail(faultNow(), true);
}

Answer_Fault Rtu_Transaction::faultOfAnswer() const {
    const auto echoEnd = endOfEchoIn(receivedBytes(), searchFrom_);
    const Answer_Fault fault =
        framing_->whyNoAnswer(result_.request, receivedBytes(), echoEnd.value_or(searchFrom_));
    return fault == Answer_Fault::Nothing && echoEnd ? Answer_Fault::OnlyEcho : fault;
}

std::string Rtu_Transaction::faultNow() const {
    const Answer_Fault fault = faultOfAnswer();
    if (foreignAt_) return "an answer after another master's request is nobody's";
    if (fault == Answer_Fault::Nothing && searchFrom_ > 0) return "only a late answer to an earlier request";
    return std::string(faultText(fault));
}

// The end of a try.

void Rtu_Transaction::learnEcho(std::size_t answerAt) {
    const auto echoEnd = endOfEchoIn(receivedBytes().first(answerAt), searchFrom_);
    result_.echoed = echoEnd.has_value();
    if (result_.request.function != Function_Code::PresetSingleRegister) learntEcho_ = result_.echoed;
}

/// A line that is faster than its baud rate, such as a pseudo-terminal's, is never told to wait.
void Rtu_Transaction::learnPace() {
    if (learntPace_ || pieces_ < tellingPieces || !onLine()) return;
    const Micros reckoned = wireTime(settings_.line, result_.received.size() - 1);
    learntPace_ = clock_.now() - firstByteAt_ >= reckoned * 3 / 4;
}

void Rtu_Transaction::succeed(const Finding& finding) {
    learnEcho(finding.offset);
    learnPace();
    const std::size_t echo = result_.echoed ? result_.sent.size() : 0;
    result_.noise = finding.offset - searchFrom_ - echo;
    result_.answerAt = finding.offset;
    result_.answerLength = finding.length;
    result_.answer = finding.answer;
    quiet_ = silence_;
    remember(finding);
    tellTrailing(finding.offset + finding.length);
    finish();
}

/// One write that comes back twice may be a controller that stuttered; two in a row are an adapter's echo.
/// Taken for one too early, an echo would be missed in every good answer after it.
void Rtu_Transaction::learnEchoOfWrite(Byte_View rest) {
    if (result_.request.function != Function_Code::PresetSingleRegister) return;
    const bool doubled = endOfEchoIn(rest).has_value();
    if (doubled && writeDoubled_) learntEcho_ = true;
    writeDoubled_ = doubled;
}

void Rtu_Transaction::tellTrailing(std::size_t from) {
    const Byte_View rest = receivedBytes().subspan(from);
    learnEchoOfWrite(rest);
    if (rest.empty()) return;
    stray_.assign(rest.begin(), rest.end());
    strayFrom_ = 0;
    result_.received.resize(from);
}

void Rtu_Transaction::fail(std::string fault, bool mayAnswerLater) {
    const auto echoEnd = endOfEchoIn(receivedBytes(), searchFrom_);
    if (echoEnd) result_.echoed = learntEcho_ = true;
    result_.fault = std::move(fault);
    quiet_ = std::max(silence_, failedQuiet);
    if (mayAnswerLater) {
        const bool begun = faultOfAnswer() == Answer_Fault::Truncated;
        late_.expect(result_.request, std::max(deadline_, clock_.now()) + timeOut_, whenOver(), begun);
    }
    finish();
}

void Rtu_Transaction::giveUpWaiting() {
    result_.fault =
        "not sent: the line doesn't get quiet, and an answer couldn't be told from an earlier one's";
    result_.startedAt = clock_.now();
    finish();
}

void Rtu_Transaction::finish() {
    lowerRts();
    result_.endedAt = clock_.now();
    state_ = State::Idle;
    const Try_Result finished = std::exchange(result_, Try_Result{});
    listener_.tryFinished(finished);
    if (state_ == State::Idle) armForState();
}

void Rtu_Transaction::portLost(const std::string& reason) {
    if (!stray_.empty()) tellUnexplained();
    if (state_ != State::Idle) {
        result_.portLost = true;
        result_.fault = "port lost";
        if (!result_.sent.empty()) late_.expect(result_.request, deadline_ + timeOut_, whenOver());
        finish();
    }
    listener_.lineLost(reason);
}

} // namespace zorvane
