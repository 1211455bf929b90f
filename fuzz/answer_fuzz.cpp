// SPDX-License-Identifier: MIT
// Feeds arbitrary bytes to the search for an answer. The first bytes choose the request.
#include "comm/modbus_control/frame/answer_search.h"
#include "fuzz/require.h"

namespace {

using namespace zorvane;
using fuzz::require;

Rtu_Request requestFrom(Byte_View seed) {
    const auto unit = static_cast<std::uint8_t>(1 + seed[1] % 247);
    const auto address = static_cast<std::uint16_t>(seed[2] * 256 + seed[3]);
    const auto count = static_cast<std::uint16_t>(1 + seed[4] % largestWrite);
    switch (seed[0] % 3) {
    case 0:
        return readRequest(unit, address, static_cast<std::uint16_t>(1 + seed[4] % largestRead));
    case 1:
        return presetSingle(unit, address, count);
    default:
        return presetMultiple(unit, address, std::vector<std::uint16_t>(count, address));
    }
}

/// What was found must be a whole valid answer where it is said to stand, and none may stand before it.
void checkFinding(const Rtu_Request& request, Byte_View received, std::size_t from) {
    const Finding finding = findAnswer(request, received, from);
    if (finding.verdict != Finding::Verdict::Found) {
        static_cast<void>(faultText(whyNoAnswer(request, received, from)));
        return;
    }
    require(finding.offset >= from && finding.offset + finding.length <= received.size(),
            "an answer lies in what came in");
    const auto checked = checkAnswer(request, received.subspan(finding.offset, finding.length));
    require(std::holds_alternative<Answer>(checked), "an answer that was found is a good one");
    const Byte_View before = received.first(finding.offset + finding.length - 1);
    require(findAnswer(request, before, from).verdict != Finding::Verdict::Found,
            "the first answer is found");
}

/// A good answer after the bytes is found, unless they hold one themselves.
void checkAppended(const Rtu_Request& request, Byte_View received) {
    const Byte_Array echo = encodeRequest(request);
    if (request.function != Function_Code::PresetSingleRegister) return;
    Byte_Array bytes(received.begin(), received.end());
    bytes.insert(bytes.end(), echo.begin(), echo.end());
    require(findAnswer(request, bytes).verdict == Finding::Verdict::Found, "a good answer is found");
    require(endOfEcho(echo, bytes).has_value(), "an echo is found");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t seedLength = 6;
    if (size < seedLength) return 0;
    const Byte_View all(data, size);
    const Byte_View received = all.subspan(seedLength);
    const Rtu_Request request = requestFrom(all);
    checkFinding(request, received, 0);
    checkFinding(request, received, all[5]);
    static_cast<void>(checkAnswer(request, received));
    checkAppended(request, received);
    return 0;
}
