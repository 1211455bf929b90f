// SPDX-License-Identifier: MIT
#include "survey/listen/frame_shape.h"

#include <algorithm>

namespace zorvane::survey {

namespace {

constexpr std::uint8_t highestUnit = 247;
constexpr std::uint8_t highestException = 11;
constexpr std::size_t crcLength = 2;
constexpr std::size_t fixedLength = 8; ///< unit, function, two words, CRC
constexpr std::size_t bareLength = 4;  ///< unit, function, CRC
constexpr std::uint8_t readDeviceIdentification = 14;

unsigned countAt(Byte_View bytes, std::size_t at) { return (unsigned{bytes[at]} << 8U) | bytes[at + 1]; }

/// Whether a count that is there yet lies in its range.
bool countFits(Byte_View head, std::size_t at, unsigned most) {
    if (head.size() < at + 2) return head.size() <= at || head[at] <= (most >> 8U);
    const unsigned count = countAt(head, at);
    return count >= 1 && count <= most;
}

unsigned mostOf(std::uint8_t function) {
    switch (function) {
    case 1:
    case 2:
        return 2000;
    case 15:
        return 1968;
    case 16:
        return largestWrite;
    default:
        return largestRead;
    }
}

bool isKnown(std::uint8_t function) {
    return (function >= 1 && function <= 8) || function == 11 || (function >= 15 && function <= 17) ||
           function == 22 || function == 23 || function == 43;
}

/// A coil's value is on or off.
bool coilFits(Byte_View head) {
    if (head.size() > 4 && head[4] != 0 && head[4] != 0xFF) return false;
    return head.size() <= 5 || head[5] == 0;
}

/// The sub-functions of a diagnosis are few.
bool diagnosisFits(Byte_View head) {
    constexpr std::uint8_t highest = 20;
    if (head.size() > 2 && head[2] != 0) return false;
    return head.size() <= 3 || head[3] <= highest;
}

/// Head, counted bytes, CRC, where the byte count stands at `at` and must fit the count before it.
std::size_t countedRequest(Byte_View head, std::size_t at, unsigned most, bool bits) {
    if (!countFits(head, at - 2, most)) return 0;
    if (head.size() <= at) return at + 1;
    const unsigned count = countAt(head, at - 2);
    const unsigned bytes = bits ? (count + 7) / 8 : 2 * count;
    return head[at] == bytes ? at + 1 + bytes + crcLength : 0;
}

std::size_t readWriteRequest(Byte_View head) {
    constexpr unsigned mostWritten = 121;
    return countFits(head, 4, largestRead) ? countedRequest(head, 10, mostWritten, false) : 0;
}

std::size_t identificationRequest(Byte_View head) {
    constexpr std::size_t length = 7;
    if (head.size() > 2 && head[2] != readDeviceIdentification) return 0;
    return head.size() > 3 && (head[3] < 1 || head[3] > 4) ? 0 : length;
}

/// Objects follow one another, each with its own length.
std::size_t identificationAnswer(Byte_View head) {
    constexpr std::size_t fixed = 8; // up to the number of objects
    if (identificationRequest(head) == 0) return 0;
    if (head.size() < fixed) return fixed;
    std::size_t length = fixed;
    for (unsigned object = 0; object < head[fixed - 1]; ++object) {
        if (head.size() < length + 2) return std::min(length + 2, largestFrame + 1);
        length += 2U + head[length + 1];
        if (length + crcLength > largestFrame) return 0;
    }
    return length + crcLength;
}

std::size_t countedAnswer(Byte_View head, bool words) {
    constexpr std::size_t headLength = 3;
    if (head.size() < headLength) return headLength;
    const std::uint8_t bytes = head[2];
    if (bytes == 0 || headLength + bytes + crcLength > largestFrame || (words && bytes % 2 != 0)) return 0;
    return headLength + bytes + crcLength;
}

std::size_t exceptionAnswer(Byte_View head) {
    if (!isKnown(head[1] & 0x7FU)) return 0;
    if (head.size() > 2 && (head[2] == 0 || head[2] > highestException)) return 0;
    return exceptionLength;
}

bool statusFits(Byte_View head) {
    if (head.size() > 2 && head[2] != 0 && head[2] != 0xFF) return false;
    return head.size() <= 3 || head[3] == head[2];
}

} // namespace

bool answersWithItself(std::uint8_t function) noexcept {
    return function == 5 || function == 6 || function == 8 || function == 22;
}

std::size_t requestLength(Byte_View head) noexcept {
    if (head.empty()) return 2;
    if (head[0] > highestUnit) return 0;
    if (head.size() < 2) return 2;
    const std::uint8_t function = head[1];
    switch (function) {
    case 1:
    case 2:
    case 3:
    case 4:
        return countFits(head, 4, mostOf(function)) ? fixedLength : 0;
    case 5:
        return coilFits(head) ? fixedLength : 0;
    case 6:
        return fixedLength;
    case 8:
        return diagnosisFits(head) ? fixedLength : 0;
    case 7:
    case 11:
    case 17:
        return bareLength;
    case 15:
    case 16:
        return countedRequest(head, 6, mostOf(function), function == 15);
    case 22:
        return 10;
    case 23:
        return readWriteRequest(head);
    case 43:
        return identificationRequest(head);
    default:
        return 0;
    }
}

std::size_t answerLength(Byte_View head) noexcept {
    if (head.empty()) return 2;
    if (head[0] == 0 || head[0] > highestUnit) return 0;
    if (head.size() < 2) return 2;
    const std::uint8_t function = head[1];
    if ((function & exceptionBit) != 0) return exceptionAnswer(head);
    switch (function) {
    case 1:
    case 2:
    case 17:
        return countedAnswer(head, false);
    case 3:
    case 4:
    case 23:
        return countedAnswer(head, true);
    case 5:
    case 6:
    case 8:
    case 22:
        return requestLength(head);
    case 7:
        return 5;
    case 11:
        return statusFits(head) ? fixedLength : 0;
    case 15:
    case 16:
        return countFits(head, 4, mostOf(function)) ? fixedLength : 0;
    case 43:
        return identificationAnswer(head);
    default:
        return 0;
    }
}

} // namespace zorvane::survey
