// SPDX-License-Identifier: MIT
// Feeds arbitrary bytes to the search for an answer of Modbus TCP. The first bytes choose the request.
#include "comm/modbus_control/frame/mbap_frame.h"
#include "fuzz/require.h"

namespace {

using namespace zorvane;
using fuzz::require;

constexpr std::size_t seedLength = 7;

Rtu_Request requestFrom(Byte_View seed) {
    const auto unit = static_cast<std::uint8_t>(1 + seed[1] % 247);
    const auto address = static_cast<std::uint16_t>(seed[2] * 256 + seed[3]);
    const auto count = static_cast<std::uint16_t>(1 + seed[4] % 4);
    Rtu_Request request = readRequest(unit, address, count);
    if (seed[0] % 3 == 1) request = presetSingle(unit, address, count);
    if (seed[0] % 3 == 2) request = presetMultiple(unit, address, {count, address});
    request.number = static_cast<std::uint16_t>(seed[5] * 256 + seed[6]);
    return request;
}

/// Frames lie one after the other, and each is as long as it says.
void checkFrames(Byte_View received) {
    std::size_t end = 0;
    for (auto frame = nextMbapFrame(received); frame; frame = nextMbapFrame(received, end)) {
        require(frame->offset >= end && frame->offset < received.size(), "a frame lies in what came in");
        if (frame->body.empty()) return;
        require(frame->length == mbapHead + frame->body.size(), "a frame has a head and a body");
        end = frame->offset + frame->length;
        require(end <= received.size(), "a whole frame is there");
    }
}

/// What was found must be a whole valid answer under the request's number.
void checkFinding(const Rtu_Request& request, Byte_View received) {
    const Mbap_Framing framing{};
    const Finding finding = framing.find(request, received, 0);
    if (finding.verdict != Finding::Verdict::Found) {
        static_cast<void>(faultText(framing.whyNoAnswer(request, received, 0)));
        return;
    }
    const Byte_View frame = received.subspan(finding.offset, finding.length);
    require(frame[0] * 256 + frame[1] == request.number, "an answer has the number of its request");
    const auto checked = checkBody(request, frame.subspan(mbapHead));
    require(std::holds_alternative<Answer>(checked), "an answer that was found is a good one");
}

/// After whole frames the answer is found, whatever stands in them.
void checkAppended(const Rtu_Request& request, Byte_View received) {
    const Mbap_Framing framing{};
    Byte_Array bytes;
    for (auto frame = nextMbapFrame(received); frame && !frame->body.empty();
         frame = nextMbapFrame(received, frame->offset + frame->length)) {
        const Byte_View whole = received.subspan(frame->offset, frame->length);
        if (frame->number != request.number) bytes.insert(bytes.end(), whole.begin(), whole.end());
    }
    const std::size_t before = bytes.size();
    const std::uint8_t exception[] = {
        static_cast<std::uint8_t>(request.number >> 8U),
        static_cast<std::uint8_t>(request.number & 0xFFU),
        0,
        0,
        0,
        3,
        request.unit,
        static_cast<std::uint8_t>(static_cast<int>(request.function) | exceptionBit),
        11};
    bytes.insert(bytes.end(), std::begin(exception), std::end(exception));
    const Finding finding = framing.find(request, bytes, 0);
    require(finding.verdict == Finding::Verdict::Found && finding.offset == before, "the answer is found");
    require(finding.answer.exception == 11, "as what it is");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < seedLength) return 0;
    const Byte_View all(data, size);
    const Byte_View received = all.subspan(seedLength);
    const Rtu_Request request = requestFrom(all);
    checkFrames(received);
    checkFinding(request, received);
    checkAppended(request, received);
    return 0;
}
