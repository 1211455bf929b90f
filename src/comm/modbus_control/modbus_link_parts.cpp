// SPDX-License-Identifier: MIT
// Blocks that are read in parts, because an answer to an earlier request may still come that would pass for
// the answer to the whole block.
#include "comm/modbus_control/exchange/exchange_text.h"
#include "comm/modbus_control/modbus_link.h"
#include "comm/modbus_control/reading_choice.h"

#include <algorithm>
#include <utility>

namespace zorvane {

Rtu_Request Modbus_Link::requestFor(const Scan_Frame& frame, std::uint8_t unit) {
    const std::uint16_t address = wireAddress(frame.first);
    if (uncut_.count(scan_.index()) != 0) return readRequest(unit, address, frame.count);
    return chooseReading(transaction_, {frame, unit, address, together_,
                                        scanTries_ > 0 ? lastReading_ : std::nullopt, onlyOfItsShape(frame)});
}

/// Whether no other request of the scan has the frame's count. To read it whole on and on, while one of its
/// answers is outstanding, keeps that one outstanding, which the others would have to wait for.
bool Modbus_Link::onlyOfItsShape(const Scan_Frame& frame) const {
    std::int64_t frames = 0;
    for (const std::int32_t number : scan_.plan().numbers()) {
        const std::int64_t size = scan_.plan().block(number).size();
        frames += frame.count == largestRead ? size / largestRead : 0;
        frames += frame.count != largestRead && size % largestRead == frame.count ? 1 : 0;
    }
    return frames <= 1;
}

void Modbus_Link::partTried(const Current& current, const Try_Result& result) {
    const Micros now = clock_.now();
    if (result.answer && result.answer->exception) return partRefused(result);
    if (!result.answer) {
        status_.lastRequestFailed = true;
        if (triedAgain(result, scanTries_)) return scan_.tryFailed(now);
        status_.commLost = true;
        return giveBlockUp({});
    }
    parts_.push_back({current.slave, current.first, result.answer->registers});
    const bool ended = scan_.partRead(result.request.count, now);
    status_.lastRequestFailed = scanTries_ > 0 && !ended;
    if (ended) takeParts();
}

/// A controller that hands the block out whole only is asked for all of it, once that can't be confused.
void Modbus_Link::partRefused(const Try_Result& result) {
    status_.lastRequestFailed = true;
    const bool whole = saysNotInParts(*result.answer->exception) && uncut_.insert(scan_.index()).second;
    if (!whole || ++scanTries_ > settings_.retries) return giveBlockUp(responseText(result));
    parts_.clear();
    scan_.blockAgain(clock_.now());
}

void Modbus_Link::giveBlockUp(const std::string& why) {
    const Scan_Block& block = scan_.plan().block(scan_.index());
    const auto count = std::min<std::int64_t>(block.size(), largestWireAddress + 1);
    image_.putFault(slaveOf(block.slave), block.first, static_cast<std::int32_t>(count), why);
    scanTries_ = 0;
    parts_.clear();
    scan_.blockGivenUp(clock_.now());
}

void Modbus_Link::takeParts() {
    for (const Read_Part& part : std::exchange(parts_, {}))
        image_.putRead(part.slave, part.first, part.registers);
    scanTries_ = 0;
}

} // namespace zorvane
