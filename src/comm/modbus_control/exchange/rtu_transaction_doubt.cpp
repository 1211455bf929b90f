// SPDX-License-Identifier: MIT
// Answers that could be taken for another request's: late ones, second copies, those of another master. And
// bytes that no request waits for.
#include "comm/modbus_control/exchange/rtu_transaction.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

/// Stray bytes wait for the line to fall silent before they are told, unless more than this many came.
constexpr std::size_t strayParcel = 512;
/// By how much an answer may take longer than all those before it of its length.
constexpr Micros listenTolerance = 3 * microsPerMs;

const char* textOf(const Late_Answers::Late& late, Micros now) {
    if (late.foreign) return "answer to another master, dropped";
    return now < late.heldUntil ? "late answer to an earlier request, dropped" : "stray bytes";
}

} // namespace

bool Rtu_Transaction::mayBeConfused(const Rtu_Request& request) {
    late_.forgetPast(clock_.now());
    return late_.confusableUntil(request) != 0;
}

bool Rtu_Transaction::expects(const Rtu_Request& request) {
    late_.forgetPast(clock_.now());
    return late_.expects(request);
}

/// When no answer to the present request can come any more.
Micros Rtu_Transaction::whenOver() const {
    return std::max(deadline_, clock_.now()) + timeOutsUntilOver * timeOut_;
}

// Late answers.

std::optional<Late_Answers::Late> Rtu_Transaction::takeLate(Byte_View bytes, std::size_t from) {
    late_.forgetPast(clock_.now());
    auto late = late_.take(*framing_, bytes, from);
    if (!late) return late;
    // What came before word for word may be a copy, and then the awaited answer is still to come.
    const Byte_View frame = bytes.subspan(late->finding.offset, late->finding.length);
    const auto copy = answered_.mayBeCopy(late->request, frame);
    if (copy != Answered_Requests::Copy::No && !late->foreign) late_.expect(late->request, 0, late->until);
    if (copy == Answered_Requests::Copy::No && !late->foreign && !late->finding.answer.exception)
        answered_.add(late->request, frame, clock_.now() + timeOutsUntilOver * timeOut_, std::nullopt);
    const bool veryLate = clock_.now() >= late->heldUntil && !late->foreign;
    if (copy == Answered_Requests::Copy::OfOther || (copy == Answered_Requests::Copy::OfOwn && veryLate))
        expectCopies(frame);
    return late;
}

bool Rtu_Transaction::skipLateAnswer() {
    const auto start = searchStart(); // after an echo, which looks like the answer to a write
    if (!start) return false;
    const auto late = takeLate(receivedBytes(), foreignAt_ ? std::max(*start, foreignEnd_) : *start);
    if (!late) return false;
    searchFrom_ = late->finding.offset + late->finding.length;
    return true;
}

// Second copies.

/// A line that brought an answer twice may do so with every answer of the last while.
void Rtu_Transaction::expectCopies(Byte_View bytes) {
    if (bytes.empty()) return;
    answered_.forgetPast(clock_.now());
    // The answer to a single write that comes again is an adapter's echo more likely.
    const bool mayEcho = onLine() && lastSent_.size() == writeAnswerLength;
    const auto echoEnd = mayEcho ? endOfEcho(lastSent_, bytes) : std::nullopt;
    if (!answered_.answersOne(*framing_, bytes.subspan(echoEnd.value_or(0)))) return;
    if (clock_.now() >= copiesUntil_) {
        for (const Answered_Requests::Entry& entry : answered_.entries())
            late_.expect(entry.request, 0, entry.until);
    }
    copiesUntil_ = clock_.now() + timeOutsUntilOver * timeOut_;
}

/// An answer that is word for word an earlier one may be its second copy: to a read of other registers at any
/// time, to one of the same when it comes before the request is out. Then the true one comes at its usual
/// time. What came before the request was out, or beside other bytes, is never taken for a read of other
/// registers.
void Rtu_Transaction::listenOrSucceed(const Finding& finding) {
    using Copy = Answered_Requests::Copy;
    answered_.forgetPast(clock_.now());
    const Byte_View frame = receivedBytes().subspan(finding.offset, finding.length);
    const Copy copy = answered_.mayBeCopy(result_.request, frame);
    const std::uint16_t count = result_.request.count;
    const Micros took = clock_.now() - txEnd_;
    const bool early = listenUntil_ != 0 ? early_ : !learntFast_ && answered_.tooEarly(count, took);
    if (copy == Copy::No || (copy == Copy::OfOwn && !early)) return succeed(finding);
    if (listenUntil_ == 0) {
        early_ = early;
        listenUntil_ = std::min(txEnd_ + answered_.longest(count) + listenTolerance, deadline_);
    }
    Finding further = framing_->find(result_.request, receivedBytes(), finding.offset + finding.length);
    const bool found = further.verdict == Finding::Verdict::Found && !further.answer.exception;
    if (found && !afterOtherMaster(further)) return succeed(further);
    const bool alone = frame.size() == receivedBytes().size() - searchStart().value_or(finding.offset);
    const bool never = copy == Copy::OfOther && (early || !alone);
    if (never || further.partial) listenUntil_ = deadline_;
    if (clock_.now() < listenUntil_) return armForState();
    if (!never) return succeed(finding);
    expectCopies(frame);
    fail("only the copy of an earlier answer", true);
}

/// A line that brings what never came before, and before its request was out by the baud rate, is faster than
/// that: a pseudo-terminal, a gateway. On it an early answer is no copy for that. What may be the late answer
/// to another request shows nothing.
void Rtu_Transaction::learnSpeed(const Finding& finding, Byte_View frame) {
    const bool isRead = result_.request.function == Function_Code::ReadHoldingRegisters;
    const bool isNew = answered_.mayBeCopy(result_.request, frame) == Answered_Requests::Copy::No;
    if (!isRead || !isNew || finding.answer.exception || late_.expects(result_.request)) return;
    learntFast_ = learntFast_ || clock_.now() < txEnd_;
}

/// Of a try that was answered: what may still come after it.
void Rtu_Transaction::remember(const Finding& finding) {
    const Micros now = clock_.now();
    answered_.forgetPast(now);
    expectCopies(receivedBytes().subspan(finding.offset - result_.noise, result_.noise));
    const Micros over = now + timeOutsUntilOver * timeOut_;
    const Byte_View frame = receivedBytes().subspan(finding.offset, finding.length);
    late_.forgetPast(now);
    learnSpeed(finding, frame);
    late_.answered(result_.request, over);
    const bool another = finding.answer.exception && late_.expectsRefusal(result_.request);
    if (another || now < copiesUntil_) late_.expect(result_.request, 0, over);
    if (!finding.answer.exception) answered_.add(result_.request, frame, over, now - txEnd_);
}

// Another master.

/// Where the last request of another master ends in the bytes, if one is there that wasn't heard yet; else 0.
std::size_t Rtu_Transaction::hearOtherMaster(Byte_View bytes, std::size_t& from) {
    if (!onLine()) return 0;
    const Rtu_Request ownSingle = presetSingle(result_.request.unit, 0, 0);
    const bool singleWrites = state_ != State::Wait && state_ != State::Settle &&
                              !late_.expectsFunction(ownSingle) && !answered_.hasFunction(ownSingle);
    std::size_t end = 0;
    while (const auto foreign = findForeignRequest(bytes, from, singleWrites)) {
        from = foreign->offset + foreign->length;
        const Byte_View frame = bytes.subspan(foreign->offset, foreign->length);
        if (std::equal(frame.begin(), frame.end(), lastSent_.begin(), lastSent_.end())) continue;
        end = from;
        noteOtherMaster(*foreign);
    }
    const std::size_t keep = std::min<std::size_t>(bytes.size(), largestFrame);
    from = std::max(from, bytes.size() - keep);
    return end;
}

void Rtu_Transaction::noteOtherMaster(const Foreign_Request& foreign) {
    const Micros now = clock_.now();
    if (foreign.function == static_cast<std::uint8_t>(foreign.request.function)) {
        late_.expectForeign(foreign.request, now + timeOut_, now + timeOutsUntilOver * timeOut_);
        late_.sent(foreign.request);
    }
    // An answer of another unit is told apart anyway.
    const bool inTry = state_ == State::Wait || state_ == State::Settle;
    if (inTry && !foreignAt_ && foreign.request.unit == result_.request.unit)
        foreignAt_ = foreign.offset - std::min(foreign.offset, ahead_.size());
    listener_.otherMasterHeard(now, foreign);
}

/// Its request may have begun before ours went out.
void Rtu_Transaction::hearOtherMasterInTry() {
    Byte_Array all = ahead_;
    all.insert(all.end(), result_.received.begin(), result_.received.end());
    const std::size_t end = hearOtherMaster(all, earFrom_);
    if (end != 0) foreignEnd_ = end - std::min(end, ahead_.size());
}

/// An answer that begins where a request was heard and goes on beyond it is no answer to that request: what
/// was heard was its own beginning, whose values look like a check sum.
bool Rtu_Transaction::afterOtherMaster(const Finding& finding) const {
    return foreignAt_ && (finding.offset > *foreignAt_ ||
                          (finding.offset == *foreignAt_ && finding.offset + finding.length <= foreignEnd_));
}

// Bytes that no request waits for.

void Rtu_Transaction::takeStray(Byte_View bytes) {
    stray_.insert(stray_.end(), bytes.begin(), bytes.end());
    if (const std::size_t end = hearOtherMaster(stray_, strayFrom_)) {
        const Byte_Array rest(stray_.begin() + static_cast<std::ptrdiff_t>(end), stray_.end());
        stray_.resize(end);
        tellStray("request of another master");
        stray_ = rest;
    }
    if (const auto late = takeLate(stray_, 0)) {
        tellStray(textOf(*late, clock_.now()));
    } else if (stray_.size() > strayParcel) {
        tellUnexplained();
    }
    armForState();
}

void Rtu_Transaction::tellUnexplained() {
    expectCopies(stray_);
    tellStray(strayText);
}

void Rtu_Transaction::tellStray(const std::string& what) {
    const Byte_Array bytes = std::exchange(stray_, {});
    strayFrom_ = 0;
    listener_.strayReceived(lastActivity_, bytes, what);
}

} // namespace zorvane
