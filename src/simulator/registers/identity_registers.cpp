// SPDX-License-Identifier: MIT
#include "simulator/registers/identity_registers.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace zorvane::simulator {

namespace {

/// As many registers as one request reads: a template may name a range of any length.
constexpr std::int64_t mostRegisters = 125;
constexpr std::int32_t lastObject = 0xFF;

/// Whether a range can be had at all.
bool isUsable(const Register_Range& range, const Register_Map& map) {
    const std::int64_t count = std::int64_t{range.last} - range.first + 1;
    return count >= 1 && count <= mostRegisters && map.onWire(range.first) && map.onWire(range.last);
}

/// Makes the registers of a range, and says whether all of them are 0.
bool addRange(const Register_Range& range, Register_Map& map) {
    bool empty = true;
    for (std::int32_t number = range.first; number <= range.last; ++number) {
        empty = map.values.try_emplace(number, std::uint16_t{0}).first->second == 0 && empty;
        map.live.erase(number);
    }
    return empty;
}

/// A number in its registers, the upper one first.
void setNumber(const Register_Range& range, std::int64_t number, Register_Map& map) {
    auto bits = static_cast<std::uint64_t>(number);
    for (std::int32_t at = range.last; at >= range.first; --at) {
        map.values[at] = static_cast<std::uint16_t>(bits & 0xFFFF);
        bits >>= 16;
    }
}

/// A text in its registers, two characters each, with blanks behind it.
void setText(const Register_Range& range, const std::string& text, Register_Map& map) {
    const auto at = [&](std::size_t place) {
        return static_cast<unsigned>(place < text.size() ? static_cast<unsigned char>(text[place]) : ' ');
    };
    std::size_t place = 0;
    for (std::int32_t number = range.first; number <= range.last; ++number, place += 2)
        map.values[number] = static_cast<std::uint16_t>(at(place) << 8 | at(place + 1));
}

void addMark(const Identity_Mark& mark, Register_Map& map) {
    if (mark.tellsByNumber() && isUsable(*mark.registers, map) && addRange(*mark.registers, map))
        setNumber(*mark.registers, mark.value ? *mark.value : mark.low ? *mark.low : *mark.high, map);
    if (mark.tellsByText() && isUsable(*mark.text, map) && addRange(*mark.text, map))
        setText(*mark.text, *mark.is, map);
}

} // namespace

void addIdentity(const Identity_Section& section, Register_Map& map) {
    for (const Identity_Mark& mark : section.marks)
        addMark(mark, map);
    for (const std::optional<Register_Range>& plate : {section.serial, section.firmware})
        if (plate && isUsable(*plate, map)) (void)addRange(*plate, map);
    for (const auto& [number, value] : map.values)
        if (holdsRegister(section.writeOnly, number)) map.writeOnly.insert(number);
    for (const auto& [number, text] : section.objectTexts)
        if (section.objects && number >= 0 && number <= lastObject)
            map.objects[static_cast<std::uint8_t>(number)] = text;
}

} // namespace zorvane::simulator
