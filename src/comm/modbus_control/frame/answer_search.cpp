// SPDX-License-Identifier: MIT
#include "comm/modbus_control/frame/answer_search.h"

#include <algorithm>

namespace zorvane {

namespace {

/// The length that an answer beginning with these bytes has, or 0 when no answer to the request begins so.
std::size_t lengthByHead(const Rtu_Request& request, Byte_View head) {
    if (head[0] != request.unit) return 0;
    const auto function = static_cast<std::uint8_t>(request.function);
    const std::size_t whole = answerLength(request);
    if (head.size() < 2) return whole;
    if (head[1] == (function | exceptionBit)) return exceptionLength;
    if (head[1] != function) return 0;
    if (request.function == Function_Code::ReadHoldingRegisters) {
        return head.size() < 3 || head[2] == 2 * request.count ? whole : 0;
    }
    if (request.function == Function_Code::ReadDeviceIdentification) {
        const std::size_t length = head.size() < 3 || head[2] == identificationType ? objectsLength(head) : 0;
        return length <= largestFrame ? length : 0;
    }
    const bool single = request.function == Function_Code::PresetSingleRegister;
    const std::uint16_t word = single ? request.values.at(0) : request.count;
    const std::uint8_t echo[] = {
        static_cast<std::uint8_t>(request.address >> 8U), static_cast<std::uint8_t>(request.address & 0xFFU),
        static_cast<std::uint8_t>(word >> 8U), static_cast<std::uint8_t>(word & 0xFFU)};
    const std::size_t known = std::min<std::size_t>(head.size() - 2, 4);
    return std::equal(echo, echo + known, head.begin() + 2) ? whole : 0;
}

/// The length by its own head of any Modbus answer of the common functions, 0 for anything else.
std::size_t lengthOfAnyAnswer(Byte_View head) {
    if (head.size() < 3) return 0;
    const std::uint8_t function = head[1];
    if ((function & exceptionBit) != 0) return exceptionLength;
    if (function >= 1 && function <= 4) return 5U + head[2];
    const bool write = function == 5 || function == 6 || function == 15 || function == 16;
    return write ? writeAnswerLength : 0;
}

/// The first whole frame with a good CRC, whomever it is from: it says better than anything what went wrong.
std::optional<Answer_Fault> faultOfForeignFrame(const Rtu_Request& request, Byte_View received) {
    for (std::size_t offset = 0; offset < received.size(); ++offset) {
        const Byte_View rest = received.subspan(offset);
        const std::size_t length = lengthOfAnyAnswer(rest);
        if (length == 0 || rest.size() < length || !crcHolds(rest.first(length))) continue;
        const auto checked = checkAnswer(request, rest.first(length));
        if (const auto* fault = std::get_if<Answer_Fault>(&checked)) return *fault;
    }
    return std::nullopt;
}

/// A frame from the request's unit and function whose byte count or echo is wrong and whose CRC too.
bool looksWhole(const Rtu_Request& request, Byte_View received) {
    return received.size() >= answerLength(request) && received[0] == request.unit &&
           (received[1] & 0x7FU) == static_cast<std::uint8_t>(request.function);
}

} // namespace

Finding findAnswer(const Rtu_Request& request, Byte_View received, std::size_t from) {
    Finding finding;
    for (std::size_t offset = from; offset < received.size(); ++offset) {
        const Byte_View rest = received.subspan(offset);
        const std::size_t length = lengthByHead(request, rest);
        if (length == 0) continue;
        if (rest.size() < length) {
            finding.partial = true;
            continue;
        }
        auto checked = checkAnswer(request, rest.first(length));
        if (auto* answer = std::get_if<Answer>(&checked)) {
            finding.verdict = Finding::Verdict::Found;
            finding.offset = offset;
            finding.length = length;
            finding.answer = std::move(*answer);
            return finding;
        }
        finding.verdict = Finding::Verdict::Damaged;
    }
    return finding;
}

std::size_t leastMissing(const Rtu_Request& request, Byte_View received, std::size_t from) {
    constexpr std::size_t tellingHead = 3; // unit, function, and the byte count or half the address
    std::size_t least = exceptionLength;
    for (std::size_t offset = from; offset < received.size(); ++offset) {
        const Byte_View rest = received.subspan(offset);
        const std::size_t length = lengthByHead(request, rest);
        if (length <= rest.size()) continue;
        if (rest.size() >= tellingHead) return length - rest.size();
        least = std::min(least, exceptionLength - rest.size());
    }
    return least;
}

Answer_Fault whyNoAnswer(const Rtu_Request& request, Byte_View received, std::size_t from) {
    const Byte_View bytes = received.subspan(std::min(from, received.size()));
    if (bytes.empty()) return Answer_Fault::Nothing;
    if (const auto fault = faultOfForeignFrame(request, bytes)) return *fault;
    const Finding finding = findAnswer(request, bytes);
    if (finding.verdict == Finding::Verdict::Damaged || looksWhole(request, bytes))
        return Answer_Fault::BadCrc;
    return finding.partial ? Answer_Fault::Truncated : Answer_Fault::Noise;
}

std::optional<std::size_t> endOfEcho(Byte_View request, Byte_View received, std::size_t from) {
    if (from >= received.size()) return std::nullopt;
    const auto at = std::search(received.begin() + static_cast<std::ptrdiff_t>(from), received.end(),
                                request.begin(), request.end());
    if (at == received.end()) return std::nullopt;
    return static_cast<std::size_t>(at - received.begin()) + request.size();
}

} // namespace zorvane
