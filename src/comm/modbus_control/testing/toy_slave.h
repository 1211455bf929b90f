// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <cstdint>
#include <map>
#include <string_view>

namespace zorvane::testing {

/// Bytes from "01 03 00 6B".
inline Byte_Array bytesOf(std::string_view pairs) {
    Byte_Array bytes;
    int digits = 0;
    unsigned value = 0;
    for (const char c : pairs) {
        if (c == ' ') continue;
        value = value * 16 + static_cast<unsigned>(c <= '9' ? c - '0' : c - 'A' + 10);
        if (++digits % 2 != 0) continue;
        bytes.push_back(static_cast<std::uint8_t>(value));
        value = 0;
    }
    return bytes;
}

/// Appends the CRC, worked out bit by bit and not by the code under test.
inline Byte_Array withCrc(Byte_Array frame) {
    unsigned crc = 0xFFFF;
    for (const std::uint8_t byte : frame) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xA001U : crc >> 1U;
        }
    }
    frame.push_back(static_cast<std::uint8_t>(crc & 0xFFU));
    frame.push_back(static_cast<std::uint8_t>(crc >> 8U));
    return frame;
}

/// A slave that holds registers by wire address and answers functions 3, 6 and 16 without a fault.
class Toy_Slave {
  public:
    explicit Toy_Slave(std::uint8_t unit = 1) : unit_(unit) {}

    /// Takes the request, writes included. Empty for another unit.
    Byte_Array answer(const Byte_Array& request) {
        if (request.at(0) != unit_) return {};
        const auto address = word(request, 2);
        const auto second = word(request, 4);
        if (request.at(1) == 3) return read(address, second);
        if (request.at(1) == 6) {
            registers[address] = second;
        } else {
            for (unsigned i = 0; i < second; ++i) {
                registers[static_cast<std::uint16_t>(address + i)] = word(request, 7 + 2 * i);
            }
        }
        return withCrc(Byte_Array(request.begin(), request.begin() + 6));
    }

    [[nodiscard]] Byte_Array exception(const Byte_Array& request, std::uint8_t code) const {
        return withCrc({unit_, static_cast<std::uint8_t>(request.at(1) | 0x80U), code});
    }

    std::map<std::uint16_t, std::uint16_t> registers;

  private:
    static std::uint16_t word(const Byte_Array& bytes, std::size_t at) {
        return static_cast<std::uint16_t>(bytes.at(at) * 256U + bytes.at(at + 1));
    }

    Byte_Array read(std::uint16_t address, unsigned count) {
        Byte_Array frame{unit_, 3, static_cast<std::uint8_t>(2 * count)};
        for (unsigned i = 0; i < count; ++i) {
            const std::uint16_t value = registers[static_cast<std::uint16_t>(address + i)];
            frame.push_back(static_cast<std::uint8_t>(value >> 8U));
            frame.push_back(static_cast<std::uint8_t>(value & 0xFFU));
        }
        return withCrc(frame);
    }

    std::uint8_t unit_;
};

} // namespace zorvane::testing
