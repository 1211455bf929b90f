// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/foreign_requests.h"

#include <algorithm>

namespace zorvane {

namespace {

constexpr std::size_t shortRequest = 8; ///< unit, function, address, count or value, CRC
constexpr std::size_t blockHead = 7;    ///< unit, function, address, count, byte count

std::uint16_t wordAt(Byte_View bytes, std::size_t at) {
    return static_cast<std::uint16_t>((bytes[at] << 8U) | bytes[at + 1]);
}

/// The length of a request that begins so; 0 where none does, or where its head isn't whole.
std::size_t requestLength(Byte_View head, bool singleWrites) {
    if (head.size() < shortRequest || head[0] > 247) return 0;
    const std::uint8_t function = head[1];
    const std::uint16_t count = wordAt(head, 4);
    if (function == 1 || function == 2) return count >= 1 && count <= 2000 ? shortRequest : 0;
    if (function == 3 || function == 4) return count >= 1 && count <= largestRead ? shortRequest : 0;
    if (function == 5 || function == 6) return singleWrites ? shortRequest : 0;
    if (function != 15 && function != 16) return 0;
    const std::size_t bytes = function == 16 ? 2U * count : (count + 7U) / 8U;
    return count >= 1 && head[6] == bytes ? blockHead + bytes + 2 : 0;
}

Rtu_Request parsed(Byte_View frame) {
    const std::uint16_t address = wordAt(frame, 2);
    if (frame[1] == 6) return presetSingle(frame[0], address, wordAt(frame, 4));
    if (frame[1] != 16) return readRequest(frame[0], address, wordAt(frame, 4));
    std::vector<std::uint16_t> values;
    for (std::size_t at = blockHead; at + 2 < frame.size(); at += 2)
        values.push_back(wordAt(frame, at));
    return presetMultiple(frame[0], address, std::move(values));
}

} // namespace

std::optional<Foreign_Request> findForeignRequest(Byte_View received, std::size_t from, bool singleWrites) {
    for (std::size_t offset = from; offset < received.size(); ++offset) {
        const Byte_View rest = received.subspan(offset);
        const std::size_t length = requestLength(rest, singleWrites);
        if (length == 0 || rest.size() < length || !crcHolds(rest.first(length))) continue;
        return Foreign_Request{parsed(rest.first(length)), rest[1], offset, length};
    }
    return std::nullopt;
}

std::string foreignRequestText(const Foreign_Request& foreign) {
    const bool reads = foreign.function <= 4;
    return "Another master is on the line: it " + std::string(reads ? "asks" : "writes to") + " unit " +
           std::to_string(foreign.request.unit) + ", " + std::to_string(foreign.request.count) +
           (foreign.request.count == 1 ? " register" : " registers") + " from address " +
           std::to_string(foreign.request.address) + " on (function " + std::to_string(foreign.function) +
           "). Let only one master use it.";
}

} // namespace zorvane
