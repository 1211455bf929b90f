// SPDX-License-Identifier: MIT
// The link's exchanges: which request goes out next, and what becomes of its answer.
#include "comm/modbus_control/exchange/exchange_text.h"
#include "comm/modbus_control/modbus_link.h"

#include <utility>

namespace zorvane {

namespace {

/// Another master that asks on and on is noted only so often; the monitor shows each of its requests.
constexpr Micros otherMasterPeriod = 60 * microsPerSecond;

/// A try before the refusal may have been taken, and its answer lost.
Write_Outcome outcomeOfFailure(const Write_Job& job, const Try_Result& result) {
    if (job.done > 0 || job.tries > 0) return Write_Outcome::Uncertain;
    if (result.answer) return Write_Outcome::Refused;
    return job.unanswered ? Write_Outcome::Uncertain : Write_Outcome::NotSent;
}

/// The answer to a single write is the request over again, as an adapter's echo is.
bool provesController(const Try_Result& result) {
    if (!result.answer) return false;
    const bool likeItsRequest =
        !result.answer->exception && result.request.function == Function_Code::PresetSingleRegister;
    const bool fromNetwork = result.request.number != 0; // where nothing echoes
    return !likeItsRequest || result.echoed || fromNetwork;
}

} // namespace

// Which request goes out next.

void Modbus_Link::next() {
    if (opening_ == Opening::Wanted) return;
    if (!port_.isOpen()) return missScan();
    if (!writes_.empty()) {
        takeHeldTry();
        withdrawScan();
    }
    if (!transaction_.idle() || held_) return;
    if (!writes_.empty()) return startWrite();
    if (scanWanted()) continueScan();
}

void Modbus_Link::startWrite() {
    const Write_Job& job = writes_.front();
    std::vector<std::uint16_t> values = job.frameValues();
    const std::string why = whyUnreachable(job.slave, job.frameFirst(), values.size());
    if (!why.empty()) {
        status_.lastResponse = why;
        status_.writeFailed = true;
        endWrite(job.done > 0 ? Write_Outcome::Uncertain : Write_Outcome::NotSent);
        writes_.drop();
        return next();
    }
    const auto unit = static_cast<std::uint8_t>(job.slave);
    const std::uint16_t address = wireAddress(job.frameFirst());
    current_ = {Current::Kind::Write, job.slave, static_cast<std::int32_t>(job.frameFirst()), false, false};
    transaction_.submit(job.single ? presetSingle(unit, address, values.at(0))
                                   : presetMultiple(unit, address, std::move(values)),
                        Line_Care::Quiet);
}

void Modbus_Link::continueScan() {
    if (scan_.plan().numbers().empty()) return missEmptyScan();
    if (const auto frame = scan_.frame()) startFrame(*frame);
    armScanAlarm();
}

void Modbus_Link::startFrame(const Scan_Frame& frame) {
    const std::int32_t slave = slaveOf(frame.slave);
    const std::string why = whyUnreachable(slave, frame.first, frame.count);
    if (!why.empty()) return refuseFrame(frame, why);
    const Rtu_Request request = requestFor(frame, static_cast<std::uint8_t>(slave));
    current_ = {Current::Kind::Scan, slave, frame.first, false, request.count < frame.count};
    lastReading_ = request;
    transaction_.submit(request, Line_Care::Quiet);
}

void Modbus_Link::refuseFrame(const Scan_Frame& frame, const std::string& why) {
    if (scan_.indexUnseen(clock_.now())) return;
    ++status_.transactionCount;
    status_.lastRequestFailed = true;
    status_.lastResponse = why;
    image_.putFault(slaveOf(frame.slave), frame.first, frame.count, why);
    scan_.blockGivenUp(clock_.now());
}

void Modbus_Link::missScan() {
    if (!scanWanted() || !missDue_) return;
    missDue_ = false;
    status_.lastRequestFailed = true; // the loss was told when the port went or couldn't be opened
    scan_.blockGivenUp(clock_.now());
}

void Modbus_Link::missEmptyScan() {
    status_.commLost = true;
    if (!missDue_) return;
    missDue_ = false;
    scan_.blockGivenUp(clock_.now());
}

void Modbus_Link::armScanAlarm() {
    auto until = scan_.waitsUntil();
    const bool free = current_.kind == Current::Kind::None;
    if (held_ || (!until && free && scan_.indexUnseen(clock_.now()))) until = scan_.shownUntil();
    if (until && (held_ || scanWanted())) scanAlarm_->armAt(*until);
}

void Modbus_Link::ringScanAlarm() {
    const Micros now = clock_.now();
    if (!scan_.indexUnseen(now)) takeHeldTry();
    scan_.advance(now);
    next();
    if (held_) armScanAlarm();
}

void Modbus_Link::scanLookedAt() {
    const bool free = current_.kind == Current::Kind::None;
    if (free && scanWanted()) scanAlarm_->armAt(clock_.now());
}

bool Modbus_Link::withdrawScan() {
    if (current_.kind != Current::Kind::Scan || !transaction_.withdraw()) return false;
    current_ = {};
    return true;
}

void Modbus_Link::restartScan() {
    scan_.restart(clock_.now());
    scanTries_ = 0;
    parts_.clear();
    if (held_) {
        held_->current.stale = true;
        return takeHeldTry();
    }
    if (current_.kind != Current::Kind::Scan) return;
    if (withdrawScan()) return next();
    current_.stale = true;
}

std::string Modbus_Link::whyUnreachable(std::int32_t slave, std::int64_t first, std::size_t count) const {
    return unreachableText(slave, first, count, addressBase_);
}

std::uint16_t Modbus_Link::wireAddress(std::int64_t first) const {
    return static_cast<std::uint16_t>(first - addressBase_);
}

// What becomes of the answer.

void Modbus_Link::requestSent() {
    ++status_.txCount;
    if (current_.kind == Current::Kind::Write && !writes_.empty()) writes_.front().unanswered = true;
}

void Modbus_Link::tryFinished(const Try_Result& result) {
    const Current current = std::exchange(current_, Current{});
    if (!mustBeHeld(current, result)) return takeTry(current, result);
    held_ = Held_Try{current, result};
    armScanAlarm();
}

bool Modbus_Link::mustBeHeld(const Current& current, const Try_Result& result) const {
    const bool good = result.answer && !result.answer->exception;
    if (current.kind != Current::Kind::Scan || current.stale || good || result.portLost) return false;
    return writes_.empty() && scan_.indexUnseen(clock_.now());
}

void Modbus_Link::takeHeldTry() {
    const auto held = std::exchange(held_, std::nullopt);
    if (held) takeTry(held->current, held->result);
}

void Modbus_Link::takeTry(const Current& current, const Try_Result& result) {
    if (!result.sent.empty()) countTry(result);
    if (current.kind == Current::Kind::Scan) scanTried(current, result);
    if (current.kind == Current::Kind::Write) writeTried(current, result);
    next();
    if (!result.sent.empty()) tell(current, result);
}

void Modbus_Link::countTry(const Try_Result& result) {
    ++status_.transactionCount;
    if (!result.received.empty()) ++status_.rxCount;
    if (result.answer) status_.commLost = false;
    if (provesController(result)) status_.controllerSeen = true;
    status_.lastResponse = responseText(result);
    status_.line1 = transmitLine(result);
    status_.line2 = receiveLine(result);
}

void Modbus_Link::scanTried(const Current& current, const Try_Result& result) {
    const bool good = result.answer && !result.answer->exception;
    const bool inParts = !current.stale && (current.part || !parts_.empty());
    if (inParts) return partTried(current, result);
    if (good) image_.putRead(current.slave, current.first, result.answer->registers);
    if (current.stale) return;
    status_.lastRequestFailed = !good;
    const Micros now = clock_.now();
    if (good) {
        scanTries_ = 0;
        return scan_.frameAnswered(true, now);
    }
    if (triedAgain(result, scanTries_)) return scan_.tryFailed(now);
    scanTries_ = 0;
    image_.putFault(current.slave, current.first, result.request.count, responseText(result));
    if (result.answer) return scan_.frameAnswered(false, now);
    status_.commLost = true;
    scan_.blockGivenUp(now);
}

/// Whether the retries leave one more try, which is counted. One that couldn't go out has waited long enough.
bool Modbus_Link::triedAgain(const Try_Result& result, std::int32_t& tries) const {
    if (result.answer || result.portLost || result.sent.empty()) return false;
    return ++tries <= settings_.retries;
}

void Modbus_Link::writeTried(const Current& current, const Try_Result& result) {
    if (writes_.empty()) return;
    if (result.answer && !result.answer->exception) {
        image_.putWritten(current.slave, current.first, result.request.values);
        if (writes_.frameDone()) endWrite(Write_Outcome::Taken);
        return;
    }
    Write_Job& job = writes_.front();
    if (triedAgain(result, job.tries)) return;
    if (!result.answer) status_.commLost = true;
    status_.writeFailed = true;
    endWrite(outcomeOfFailure(job, result));
    writes_.drop();
}

void Modbus_Link::endWrite(Write_Outcome outcome) {
    status_.writeOutcome = outcome;
    ++status_.writesEnded;
}

void Modbus_Link::tell(const Current& current, const Try_Result& result) {
    const std::string line1 = transmitLine(result);
    const std::string line2 = receiveLine(result);
    if (traffic_ != nullptr) {
        Exchange_Record record;
        record.at = result.startedAt;
        record.duration = result.endedAt - result.startedAt;
        record.unit = result.request.unit;
        record.function = result.request.function;
        record.firstRegister = current.first;
        record.wireAddress = result.request.address;
        record.count = result.request.count;
        record.values = result.request.values;
        record.good = result.answer && !result.answer->exception;
        if (record.good && record.values.empty()) record.values = result.answer->registers;
        record.result = resultText(result);
        record.sent = result.sent;
        record.received = result.received;
        traffic_->exchangeSeen(record);
    }
    if (handler_) handler_(line1, line2);
}

void Modbus_Link::otherMasterHeard(Micros at, const Foreign_Request& foreign) {
    if (otherMasterAt_ && at < *otherMasterAt_ + otherMasterPeriod) return;
    otherMasterAt_ = at;
    note(foreignRequestText(foreign));
}

void Modbus_Link::strayReceived(Micros at, const Byte_Array& bytes, const std::string& what) {
    if (traffic_ != nullptr) traffic_->straySeen({at, bytes, what});
}

} // namespace zorvane
