// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zorvane::simulator {

/// How a live register may move: by small steps that leave the fixed bits alone, or, if there are any,
/// through `codes` only.
struct Live_Range {
    std::uint16_t fixedBits = 0x8000; ///< the sign, and what lies above it
    std::vector<std::uint16_t> codes;

    bool operator==(const Live_Range&) const = default;
};

/// The objects by which a controller tells who it is (function 43, type 14), by number: 0 the maker's name, 1
/// the product code, 2 the revision; 0x80 and above are the maker's own. Texts of at most 244 bytes.
using Device_Objects = std::map<std::uint8_t, std::string>;

/// The registers that a controller has, by register number as a template writes it. The address on the wire
/// is the number minus `addressBase` and must lie from 0 to 65535.
struct Register_Map {
    std::map<std::int32_t, std::uint16_t> values;
    std::map<std::int32_t, Live_Range> live; ///< registers that move by themselves
    std::int32_t addressBase = 0;
    std::set<std::int32_t> writeOnly; ///< registers that refuse reading
    Device_Objects objects;           ///< empty: the controller doesn't say what it is

    [[nodiscard]] bool onWire(std::int64_t number) const noexcept {
        return number - addressBase >= 0 && number - addressBase <= 0xFFFF;
    }
};

/// Sets and adds the registers of a JSON text {"address": value 0..65535, …}. Throws `std::runtime_error`
/// with a reason for people when the text is anything else; the map is unchanged then.
void applyRegisterJson(const std::string& json, Register_Map& map);

} // namespace zorvane::simulator
