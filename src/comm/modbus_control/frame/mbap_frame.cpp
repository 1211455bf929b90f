// SPDX-License-Identifier: MIT
#include "comm/modbus_control/frame/mbap_frame.h"

#include <algorithm>

namespace zorvane {

namespace {

std::uint16_t headWord(Byte_View bytes, std::size_t at) {
    return static_cast<std::uint16_t>((bytes[at] << 8U) | bytes[at + 1]);
}

/// Whether a frame of an answer may begin so.
bool mayBegin(Byte_View bytes) {
    const std::size_t known = std::min(bytes.size(), mbapHead);
    for (std::size_t place = 2; place < std::min<std::size_t>(known, 5); ++place)
        if (bytes[place] != 0) return false; // the protocol, and the high byte of the length
    return known < mbapHead || (bytes[5] >= mbapLeast && bytes[5] <= mbapMost);
}

} // namespace

Byte_Array encodeMbap(const Rtu_Request& request) {
    const Byte_Array body = encodeBody(request);
    const std::uint16_t heads[] = {request.number, 0, static_cast<std::uint16_t>(body.size())};
    Byte_Array frame;
    frame.reserve(mbapHead + body.size());
    for (const std::uint16_t word : heads) {
        frame.push_back(static_cast<std::uint8_t>(word >> 8U));
        frame.push_back(static_cast<std::uint8_t>(word & 0xFFU));
    }
    frame.insert(frame.end(), body.begin(), body.end());
    return frame;
}

std::optional<Mbap_Frame> nextMbapFrame(Byte_View received, std::size_t from) {
    for (std::size_t offset = from; offset < received.size(); ++offset) {
        const Byte_View rest = received.subspan(offset);
        if (!mayBegin(rest)) continue;
        Mbap_Frame frame;
        frame.offset = offset;
        if (rest.size() >= 2) frame.number = headWord(rest, 0);
        if (rest.size() >= mbapHead) frame.length = mbapHead + rest[5];
        if (frame.length != 0 && rest.size() >= frame.length)
            frame.body = rest.subspan(mbapHead, frame.length - mbapHead);
        return frame;
    }
    return std::nullopt;
}

Finding Mbap_Framing::find(const Rtu_Request& request, Byte_View received, std::size_t from) const {
    Finding finding;
    for (auto frame = nextMbapFrame(received, from); frame;
         frame = nextMbapFrame(received, frame->offset + frame->length)) {
        const bool numberKnown = received.size() - frame->offset >= 2;
        const bool own = !numberKnown || frame->number == request.number;
        if (frame->body.empty()) {
            finding.partial = own;
            break;
        }
        if (!own) continue;
        auto checked = checkBody(request, frame->body);
        if (auto* answer = std::get_if<Answer>(&checked)) {
            finding.verdict = Finding::Verdict::Found;
            finding.offset = frame->offset;
            finding.length = frame->length;
            finding.answer = std::move(*answer);
            break;
        }
        finding.verdict = Finding::Verdict::Damaged;
    }
    return finding;
}

Answer_Fault Mbap_Framing::whyNoAnswer(const Rtu_Request& request, Byte_View received,
                                       std::size_t from) const {
    if (received.size() <= from) return Answer_Fault::Nothing;
    Answer_Fault fault = Answer_Fault::Noise;
    for (auto frame = nextMbapFrame(received, from); frame;
         frame = nextMbapFrame(received, frame->offset + frame->length)) {
        const std::size_t have = received.size() - frame->offset;
        const bool begun = have < 2 ? frame->offset == from : frame->number == request.number;
        if (frame->body.empty()) return begun ? Answer_Fault::Truncated : fault;
        if (frame->number != request.number) {
            fault = Answer_Fault::OtherNumber;
            continue;
        }
        const auto checked = checkBody(request, frame->body);
        if (const auto* failed = std::get_if<Answer_Fault>(&checked)) return *failed;
    }
    return fault;
}

} // namespace zorvane
