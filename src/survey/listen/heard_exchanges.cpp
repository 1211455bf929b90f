// SPDX-License-Identifier: MIT
#include "survey/listen/heard_exchanges.h"

#include "survey/listen/frame_shape.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zorvane::survey {

namespace {

/// An answer that comes later than this belongs to nothing that was heard.
constexpr Micros longestAnswer = 10 * microsPerSecond;
/// A copy of a write that comes later than this is its repetition by a master that got no answer.
constexpr Micros longestCopy = 900 * microsPerMs;

std::uint16_t wordAt(Byte_View bytes, std::size_t at) {
    return static_cast<std::uint16_t>((bytes[at] << 8U) | bytes[at + 1]);
}

bool countsBits(std::uint8_t function) { return function == 1 || function == 2; }
bool readsWords(std::uint8_t function) { return function == 3 || function == 4 || function == 23; }

/// The bytes that a good answer to the request counts, for the functions whose answers count them.
std::size_t answerBytes(const Asked& asked) {
    return countsBits(asked.function) ? (asked.count + 7U) / 8U : 2U * asked.count;
}

bool fits(const Heard_Frame& request, const Heard_Frame& answer) {
    if (request.unit() != answer.unit() || request.function() != answer.function()) return false;
    if (answer.isException()) return true;
    const Byte_View asking = request.bytes;
    const Byte_View answering = answer.bytes;
    const std::uint8_t function = request.function();
    if (countsBits(function) || readsWords(function)) return answering[2] == answerBytes(askedBy(asking));
    if (answersWithItself(function))
        return std::equal(asking.begin(), asking.end(), answering.begin(), answering.end());
    if (function == 15 || function == 16)
        return std::equal(asking.begin(), asking.begin() + 6, answering.begin());
    return true;
}

/// Whether the bytes between request and answer may hold another request to which the answer belongs, damaged
/// on its way to us. Such a one would have kept all but one of the bytes that the answer names.
bool mayHideRequest(const Heard_Frame& request, const Heard_Frame& answer) {
    const Byte_View noise = answer.noise;
    const std::array<std::uint8_t, 2> head{answer.unit(), answer.function()};
    if (std::search(noise.begin(), noise.end(), head.begin(), head.end()) != noise.end()) return true;
    if (answer.isException() || !(countsBits(answer.function()) || readsWords(answer.function())))
        return false;
    const std::uint16_t count = askedBy(request.bytes).count;
    const auto is = [noise](std::size_t at, unsigned byte) {
        return at < noise.size() && noise[at] == byte ? 1 : 0;
    };
    for (std::size_t unitAt = 0; unitAt < noise.size() + 1; ++unitAt) { // counted from one before the first
        const int alike = (unitAt == 0 ? 0 : is(unitAt - 1, head[0])) + is(unitAt, head[1]) +
                          is(unitAt + 3, count >> 8U) + is(unitAt + 4, count & 0xFFU);
        if (alike >= 3) return true;
    }
    return false;
}

/// Whether the answer to one could pass for the other's.
bool alike(const Asked& one, const Asked& other) {
    return one.unit == other.unit && one.function == other.function && one.count == other.count;
}

} // namespace

Asked askedBy(Byte_View request) {
    Asked asked{request[0], static_cast<std::uint8_t>(request[1] & 0x7FU), 0, 0};
    const std::uint8_t function = asked.function;
    if (function == 7 || function == 8 || function == 11 || function == 17 || function == 43) return asked;
    asked.address = wordAt(request, 2);
    const bool single = function == 5 || function == 6 || function == 22;
    asked.count = single ? 1 : wordAt(request, 4);
    return asked;
}

Micros Heard_Exchange::answerTime() const { return std::max<Micros>(0, answer->firstAt - request->lastAt); }

void Heard_Exchanges::take(const Heard_Frame& frame) {
    if (isAnswer(frame))
        takeAnswer(frame);
    else
        takeRequest(frame);
}

void Heard_Exchanges::end() {
    tellHeld(true);
    tellOpen();
}

/// Where the form leaves both, it is the answer if the open request asks for just that.
bool Heard_Exchanges::isAnswer(const Heard_Frame& frame) const {
    if (!frame.mayAsk || !frame.mayAnswer) return frame.mayAnswer;
    if (!open_ || !fits(*open_, frame)) return false;
    return !answersWithItself(frame.function()) || frame.firstAt - open_->lastAt <= longestCopy;
}

void Heard_Exchanges::takeRequest(const Heard_Frame& frame) {
    tellHeld(true);
    const bool passedOver = open_ && open_->unit() != 0;
    unanswered_ = passedOver ? std::optional(askedBy(open_->bytes)) : std::nullopt;
    tellOpen();
    open_ = frame;
}

void Heard_Exchanges::takeAnswer(const Heard_Frame& frame) {
    const bool oneTooMany = held_ && fits(*held_->request, frame);
    tellHeld(!oneTooMany);
    const bool its = open_ && fits(*open_, frame) && frame.firstAt - open_->lastAt <= longestAnswer &&
                     !mayHideRequest(*open_, frame);
    if (!its) return told_({std::nullopt, frame});
    const Asked asked = askedBy(open_->bytes);
    const Heard_Exchange pair{std::exchange(open_, std::nullopt), frame};
    const bool doubtful = unanswered_ && alike(*unanswered_, asked) && *unanswered_ != asked;
    if (!doubtful) return told_(pair);
    held_ = pair;
}

void Heard_Exchanges::tellHeld(bool asPair) {
    if (!held_) return;
    const Heard_Exchange pair = *std::exchange(held_, std::nullopt);
    if (asPair) return told_(pair);
    told_({pair.request, std::nullopt});
    told_({std::nullopt, pair.answer});
}

void Heard_Exchanges::tellOpen() {
    if (!open_) return;
    told_({std::exchange(open_, std::nullopt), std::nullopt});
}

} // namespace zorvane::survey
