// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zorvane {

// Frames of Modbus RTU as public documents define them: the bytes of requests and answers in "MODBUS
// Application Protocol Specification V1.1b3" (6.3, 6.6, 6.12, 6.21 and 7), the RTU frame around them and its
// CRC in "MODBUS over Serial Line Specification and Implementation Guide V1.02" (2.5.1 and 6.2.2).

using Byte_Array = std::vector<std::uint8_t>;
using Byte_View = std::span<const std::uint8_t>;

inline constexpr std::size_t largestFrame = 256;  ///< bytes, unit and CRC included (serial line, 2.5.1.1)
inline constexpr std::int32_t largestRead = 125;  ///< registers of one function 3 request (6.3)
inline constexpr std::int32_t largestWrite = 123; ///< registers of one function 16 request (6.12)
inline constexpr std::int32_t largestWireAddress = 65535;
inline constexpr std::uint8_t exceptionBit = 0x80;  ///< added to the function of an exception answer (7)
inline constexpr std::size_t exceptionLength = 5;   ///< unit, function, code, CRC
inline constexpr std::size_t writeAnswerLength = 8; ///< unit, function, address, value or quantity, CRC

enum class Function_Code : std::uint8_t {
    ReadHoldingRegisters = 3,
    PresetSingleRegister = 6,
    PresetMultipleRegisters = 16,
    ReadDeviceIdentification = 43, ///< of its types only 14
};

[[nodiscard]] constexpr bool isWrite(Function_Code function) noexcept {
    return function == Function_Code::PresetSingleRegister ||
           function == Function_Code::PresetMultipleRegisters;
}

inline constexpr std::uint8_t identificationType = 14; ///< of function 43

/// How many of the objects of function 43/14 are asked for: numbers up to 2, 127 or 255.
enum class Object_Level : std::uint8_t { Basic = 1, Regular = 2, Extended = 3 };

/// One request for one slave. The address is the one on the wire; that of a request for objects is their
/// level and the number of the first one.
struct Rtu_Request {
    std::uint8_t unit = 1; ///< 1 to 247
    Function_Code function = Function_Code::ReadHoldingRegisters;
    std::uint16_t address = 0;
    std::uint16_t count = 1;           ///< registers: 1 to 125 read, 1 to 123 written, 1 for function 6
    std::vector<std::uint16_t> values; ///< what is written, `count` of them; empty for a read
    std::uint16_t number = 0;          ///< that its answer repeats, on Modbus TCP; elsewhere 0

    bool operator==(const Rtu_Request&) const = default;
};

[[nodiscard]] Rtu_Request readRequest(std::uint8_t unit, std::uint16_t address, std::uint16_t count);
[[nodiscard]] Rtu_Request presetSingle(std::uint8_t unit, std::uint16_t address, std::uint16_t value);
[[nodiscard]] Rtu_Request presetMultiple(std::uint8_t unit, std::uint16_t address,
                                         std::vector<std::uint16_t> values);

/// Asks for the objects of function 43/14, from number 0 on.
[[nodiscard]] Rtu_Request objectsRequest(std::uint8_t unit, Object_Level level);

/// The CRC-16 of a frame without its own two CRC bytes; the low byte goes out first.
[[nodiscard]] std::uint16_t crc16(Byte_View bytes) noexcept;
/// Whether the last two bytes are the CRC of those before. False below four bytes.
[[nodiscard]] bool crcHolds(Byte_View frame) noexcept;

/// Unit, function and data of a request: what a frame of any kind holds.
[[nodiscard]] Byte_Array encodeBody(const Rtu_Request& request);
/// The request's frame, ready for the wire.
[[nodiscard]] Byte_Array encodeRequest(const Rtu_Request& request);

/// Length of the good answer's frame; of one with objects the least.
[[nodiscard]] std::size_t answerLength(const Rtu_Request& request) noexcept;
/// Length of the frame of an answer with objects that begins so, as far as its beginning tells: no answer is
/// shorter, and one that is there whole has just this length.
[[nodiscard]] std::size_t objectsLength(Byte_View head) noexcept;

/// A valid answer: the registers of a read, the objects of one of function 43/14, or an exception.
struct Answer {
    std::optional<std::uint8_t> exception{};       ///< its code; none for a good answer
    std::vector<std::uint16_t> registers{};        ///< of a good answer to a read
    std::map<std::uint8_t, std::string> objects{}; ///< by number, bytes as they came

    bool operator==(const Answer&) const = default;
};

/// Which test an answer failed.
enum class Answer_Fault {
    Nothing,
    Truncated,
    BadCrc,
    OtherUnit,
    OtherFunction,
    ByteCount,
    EchoAddress,
    EchoValue,
    EchoQuantity,
    WrongLength,
    Noise,
    OnlyEcho,
    OtherNumber,
};

/// The fault in words, as the monitor shows it.
[[nodiscard]] std::string_view faultText(Answer_Fault fault) noexcept;

/// Holds unit, function and data of an answer against the request that it should answer.
[[nodiscard]] std::variant<Answer, Answer_Fault> checkBody(const Rtu_Request& request, Byte_View body);
/// Holds one whole frame against the request that it should answer: unit, function, byte count or echo,
/// exact length, CRC.
[[nodiscard]] std::variant<Answer, Answer_Fault> checkAnswer(const Rtu_Request& request, Byte_View frame);

} // namespace zorvane
