// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/register_ranges.h"

namespace zorvane {

namespace {

std::string rangeText(const Register_Range& range) {
    const std::string first = std::to_string(range.first);
    return range.first == range.last ? first : first + "-" + std::to_string(range.last);
}

} // namespace

std::vector<Register_Range> rangesOf(const std::set<std::int32_t>& registers) {
    std::vector<Register_Range> ranges;
    for (const std::int32_t address : registers) {
        if (!ranges.empty() && std::int64_t{ranges.back().last} + 1 == address)
            ranges.back().last = address;
        else
            ranges.push_back({address, address});
    }
    return ranges;
}

std::string namedRange(const Register_Range& range) {
    return (range.first == range.last ? "Register " : "Registers ") + rangeText(range);
}

std::string registersText(const std::set<std::int32_t>& registers, std::size_t most) {
    std::string text;
    std::size_t ranges = 0;
    std::size_t left = registers.size();
    for (const Register_Range& range : rangesOf(registers)) {
        if (ranges++ == most) return text + " and " + std::to_string(left) + " more";
        left -= static_cast<std::size_t>(std::int64_t{range.last} - range.first + 1);
        text += (text.empty() ? "" : ", ") + rangeText(range);
    }
    return text;
}

} // namespace zorvane
