// SPDX-License-Identifier: MIT
#include "comm/modbus_control/frame/rtu_frame.h"

#include <array>
#include <utility>

namespace zorvane {

namespace {

constexpr std::array<std::uint16_t, 256> makeCrcTable() {
    std::array<std::uint16_t, 256> table{};
    for (std::uint16_t byte = 0; byte < 256; ++byte) {
        std::uint16_t crc = byte;
        for (int bit = 0; bit < 8; ++bit) {
            const bool carry = (crc & 1U) != 0;
            crc = static_cast<std::uint16_t>(crc >> 1U);
            if (carry) crc = static_cast<std::uint16_t>(crc ^ 0xA001U);
        }
        table[byte] = crc;
    }
    return table;
}

constexpr std::array<std::uint16_t, 256> crcTable = makeCrcTable();

void appendWord(Byte_Array& bytes, std::uint16_t word) {
    bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
    bytes.push_back(static_cast<std::uint8_t>(word & 0xFFU));
}

std::uint16_t wordAt(Byte_View bytes, std::size_t at) {
    return static_cast<std::uint16_t>((bytes[at] << 8U) | bytes[at + 1]);
}

constexpr std::size_t crcLength = 2;
constexpr std::size_t objectsHead = 8; ///< unit, function, type, level, conformity, more, next, count
constexpr std::size_t objectHead = 2;  ///< number and length

std::variant<Answer, Answer_Fault> checkRead(const Rtu_Request& request, Byte_View body) {
    if (body.size() < 3) return Answer_Fault::WrongLength;
    if (body[2] != 2 * request.count) return Answer_Fault::ByteCount;
    if (body.size() + crcLength != answerLength(request)) return Answer_Fault::WrongLength;
    Answer answer;
    answer.registers.reserve(request.count);
    for (std::size_t i = 0; i < request.count; ++i) {
        answer.registers.push_back(wordAt(body, 3 + 2 * i));
    }
    return answer;
}

std::variant<Answer, Answer_Fault> checkWrite(const Rtu_Request& request, Byte_View body) {
    if (body.size() + crcLength != writeAnswerLength) return Answer_Fault::WrongLength;
    if (wordAt(body, 2) != request.address) return Answer_Fault::EchoAddress;
    const bool single = request.function == Function_Code::PresetSingleRegister;
    const std::uint16_t wanted = single ? request.values.at(0) : request.count;
    if (wordAt(body, 4) != wanted) return single ? Answer_Fault::EchoValue : Answer_Fault::EchoQuantity;
    return Answer{};
}

std::variant<Answer, Answer_Fault> checkObjects(Byte_View body) {
    if (body.size() < objectsHead) return Answer_Fault::WrongLength;
    if (body[2] != identificationType) return Answer_Fault::OtherFunction;
    if (body.size() + crcLength != objectsLength(body)) return Answer_Fault::WrongLength;
    Answer answer;
    for (std::size_t at = objectsHead; at < body.size(); at += objectHead + body[at + 1]) {
        const Byte_View text = body.subspan(at + objectHead, body[at + 1]);
        answer.objects[body[at]] = std::string(text.begin(), text.end());
    }
    return answer;
}

std::variant<Answer, Answer_Fault> checkException(Byte_View body) {
    if (body.size() + crcLength != exceptionLength) return Answer_Fault::WrongLength;
    Answer answer;
    answer.exception = body[2];
    return answer;
}

} // namespace

Rtu_Request readRequest(std::uint8_t unit, std::uint16_t address, std::uint16_t count) {
    return {unit, Function_Code::ReadHoldingRegisters, address, count, {}, 0};
}

Rtu_Request presetSingle(std::uint8_t unit, std::uint16_t address, std::uint16_t value) {
    return {unit, Function_Code::PresetSingleRegister, address, 1, {value}, 0};
}

Rtu_Request presetMultiple(std::uint8_t unit, std::uint16_t address, std::vector<std::uint16_t> values) {
    const auto count = static_cast<std::uint16_t>(values.size());
    return {unit, Function_Code::PresetMultipleRegisters, address, count, std::move(values), 0};
}

Rtu_Request objectsRequest(std::uint8_t unit, Object_Level level) {
    const auto address = static_cast<std::uint16_t>(static_cast<std::uint8_t>(level) << 8U);
    return {unit, Function_Code::ReadDeviceIdentification, address, 1, {}, 0};
}

std::uint16_t crc16(Byte_View bytes) noexcept {
    std::uint16_t crc = 0xFFFF;
    for (const std::uint8_t byte : bytes) {
        crc = static_cast<std::uint16_t>((crc >> 8U) ^ crcTable[(crc ^ byte) & 0xFFU]);
    }
    return crc;
}

bool crcHolds(Byte_View frame) noexcept {
    if (frame.size() < 4) return false;
    const std::uint16_t crc = crc16(frame.first(frame.size() - 2));
    return frame[frame.size() - 2] == (crc & 0xFFU) && frame[frame.size() - 1] == (crc >> 8U);
}

Byte_Array encodeBody(const Rtu_Request& request) {
    Byte_Array body{request.unit, static_cast<std::uint8_t>(request.function)};
    if (request.function == Function_Code::ReadDeviceIdentification) {
        body.push_back(identificationType);
        appendWord(body, request.address);
        return body;
    }
    appendWord(body, request.address);
    if (request.function != Function_Code::PresetSingleRegister) appendWord(body, request.count);
    if (request.function == Function_Code::PresetMultipleRegisters) {
        body.push_back(static_cast<std::uint8_t>(2 * request.values.size()));
    }
    for (const std::uint16_t value : request.values) {
        appendWord(body, value);
    }
    return body;
}

Byte_Array encodeRequest(const Rtu_Request& request) {
    Byte_Array frame = encodeBody(request);
    const std::uint16_t crc = crc16(frame);
    frame.push_back(static_cast<std::uint8_t>(crc & 0xFFU));
    frame.push_back(static_cast<std::uint8_t>(crc >> 8U));
    return frame;
}

std::size_t answerLength(const Rtu_Request& request) noexcept {
    if (isWrite(request.function)) return writeAnswerLength;
    if (request.function == Function_Code::ReadDeviceIdentification) return objectsHead + crcLength;
    return 5U + 2U * request.count;
}

std::size_t objectsLength(Byte_View head) noexcept {
    if (head.size() < objectsHead) return objectsHead + crcLength;
    std::size_t length = objectsHead;
    for (unsigned left = head[objectsHead - 1]; left > 0; --left) {
        if (head.size() < length + objectHead) return length + left * objectHead + crcLength;
        length += objectHead + head[length + 1];
    }
    return length + crcLength;
}

std::string_view faultText(Answer_Fault fault) noexcept {
    switch (fault) {
    case Answer_Fault::Nothing:
        return "no answer";
    case Answer_Fault::Truncated:
        return "answer cut short";
    case Answer_Fault::BadCrc:
        return "wrong CRC";
    case Answer_Fault::OtherUnit:
        return "answer of another unit";
    case Answer_Fault::OtherFunction:
        return "answer to another function";
    case Answer_Fault::ByteCount:
        return "wrong byte count";
    case Answer_Fault::EchoAddress:
        return "wrong address echoed";
    case Answer_Fault::EchoValue:
        return "wrong value echoed";
    case Answer_Fault::EchoQuantity:
        return "wrong quantity echoed";
    case Answer_Fault::WrongLength:
        return "wrong length";
    case Answer_Fault::Noise:
        return "only noise";
    case Answer_Fault::OnlyEcho:
        return "only the adapter's echo";
    case Answer_Fault::OtherNumber:
        return "answer under another transaction number";
    }
    return "no answer";
}

std::variant<Answer, Answer_Fault> checkAnswer(const Rtu_Request& request, Byte_View frame) {
    if (frame.empty()) return Answer_Fault::Nothing;
    if (frame.size() < 4) return Answer_Fault::Truncated;
    if (!crcHolds(frame))
        return frame.size() < exceptionLength ? Answer_Fault::Truncated : Answer_Fault::BadCrc;
    return checkBody(request, frame.first(frame.size() - crcLength));
}

std::variant<Answer, Answer_Fault> checkBody(const Rtu_Request& request, Byte_View body) {
    if (body.size() < 2) return Answer_Fault::WrongLength;
    if (body[0] != request.unit) return Answer_Fault::OtherUnit;
    const auto function = static_cast<std::uint8_t>(request.function);
    if (body[1] == (function | exceptionBit)) return checkException(body);
    if (body[1] != function) return Answer_Fault::OtherFunction;
    if (request.function == Function_Code::ReadHoldingRegisters) return checkRead(request, body);
    if (request.function == Function_Code::ReadDeviceIdentification) return checkObjects(body);
    return checkWrite(request, body);
}

} // namespace zorvane
