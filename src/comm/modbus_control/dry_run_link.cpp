// SPDX-License-Identifier: MIT
#include "comm/modbus_control/dry_run_link.h"

namespace zorvane {

std::int32_t Dry_Run_Link::RegisterValue(std::int32_t /*slave*/, std::int32_t address, bool isSigned) const {
    const auto found = registers_.find(address);
    const std::uint16_t value = found == registers_.end() ? std::uint16_t{0} : found->second;
    return isSigned ? static_cast<std::int16_t>(value) : std::int32_t{value};
}

Register_Reading Dry_Run_Link::readingOf(std::int32_t /*slave*/, std::int32_t address) const {
    return {given_.contains(address) ? Reading_Age::ThisOpening : Reading_Age::Never, std::nullopt};
}

void Dry_Run_Link::PresetSingleRegister(std::int32_t /*slave*/, std::int32_t address, std::int32_t value) {
    write(6, address, {value});
}

void Dry_Run_Link::PresetMultipleRegisters(std::int32_t /*slave*/, std::int32_t startAddress,
                                           const std::vector<std::int32_t>& values) {
    write(16, startAddress, values);
}

void Dry_Run_Link::write(int function, std::int32_t start, const std::vector<std::int32_t>& values) {
    Planned_Write planned{function, start, {}};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = static_cast<std::uint16_t>(values[i] & 0xFFFF);
        planned.values.push_back(value);
        registers_[start + static_cast<std::int32_t>(i)] = value;
    }
    writes_.push_back(std::move(planned));
    ++transactions_;
}

} // namespace zorvane
