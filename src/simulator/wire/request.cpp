// SPDX-License-Identifier: MIT
#include "simulator/wire/request.h"

namespace zorvane::simulator {

namespace {

constexpr std::size_t fixedRequest = 8;
constexpr std::size_t identificationRequest = 7; ///< unit, function, type, code, object
constexpr std::size_t blockHead = 7;             ///< unit, function, address, quantity, byte count
constexpr std::size_t checkSum = 2;
constexpr int exceptionBit = 0x80;

std::uint16_t wordAt(Bytes_View bytes, std::size_t place) {
    return static_cast<std::uint16_t>(bytes[place] << 8U | bytes[place + 1]);
}

std::vector<std::uint16_t> words(Bytes_View bytes) {
    std::vector<std::uint16_t> values;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        values.push_back(wordAt(bytes, i));
    return values;
}

/// Length of a good answer to functions 3, 6 and 16; nothing for others.
std::optional<std::size_t> answerLength(Bytes_View frame) {
    switch (frame[1]) {
    case functionReadRegisters:
        return 3 + frame[2] + checkSum;
    case functionWriteRegister:
    case functionWriteRegisters:
        return fixedRequest;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<std::size_t> requestLength(Bytes_View bytes) noexcept {
    if (bytes.size() < 2) return std::nullopt;
    const int function = bytes[1];
    if (function >= 1 && function <= 6) return fixedRequest;
    if (function != 15 && function != functionWriteRegisters) return std::nullopt;
    if (bytes.size() < blockHead) return std::nullopt;
    return blockHead + bytes[blockHead - 1] + checkSum;
}

bool asksForIdentification(Bytes_View frame) noexcept {
    return frame.size() == identificationRequest && frame[1] == functionIdentification &&
           frame[2] == identificationType;
}

Frame_Facts requestFacts(Bytes_View frame) {
    Frame_Facts facts;
    facts.unit = frame[0];
    facts.function = frame[1];
    if (facts.function == functionReadRegisters) {
        facts.address = wordAt(frame, 2);
        facts.quantity = wordAt(frame, 4);
    } else if (facts.function == functionWriteRegister) {
        facts.address = wordAt(frame, 2);
        facts.quantity = std::uint16_t{1};
        facts.values = {wordAt(frame, 4)};
    } else if (facts.function == functionWriteRegisters) {
        facts.address = wordAt(frame, 2);
        facts.quantity = wordAt(frame, 4);
        facts.values = words(frame.subspan(blockHead, frame.size() - blockHead - checkSum));
        facts.byteCountFits = frame[blockHead - 1] == 2 * *facts.quantity;
    }
    return facts;
}

std::optional<Frame_Facts> answerFacts(Bytes_View frame, const Frame_Facts& request) {
    if (frame.size() < shortestFrame + 1) return std::nullopt;
    Frame_Facts facts;
    facts.unit = frame[0];
    facts.function = frame[1] & ~exceptionBit;
    facts.address = request.address;
    if ((frame[1] & exceptionBit) != 0) {
        if (frame.size() != shortestFrame + 1) return std::nullopt;
        facts.exception = frame[2];
        return facts;
    }
    if (facts.function == functionIdentification && request.function == facts.function) return facts;
    if (answerLength(frame) != frame.size()) return std::nullopt;
    if (facts.function == functionReadRegisters) {
        facts.values = words(frame.subspan(3, frame[2]));
        facts.quantity = static_cast<std::uint16_t>(facts.values.size());
        return facts;
    }
    facts.address = wordAt(frame, 2);
    if (facts.function == functionWriteRegister) {
        facts.quantity = std::uint16_t{1};
        facts.values = {wordAt(frame, 4)};
    } else {
        facts.quantity = wordAt(frame, 4);
    }
    return facts;
}

} // namespace zorvane::simulator
