// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/register_store.h"

namespace zorvane {

namespace {

std::uint64_t key(std::int32_t slave, std::int32_t address) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(slave)) << 32U) |
           static_cast<std::uint32_t>(address);
}

} // namespace

void Register_Store::putRead(std::int32_t slave, std::int32_t first, std::span<const std::uint16_t> values) {
    for (const std::uint16_t value : values)
        registers_[key(slave, first++)] = Entry{value, opening_, std::nullopt};
}

void Register_Store::putWritten(std::int32_t slave, std::int32_t first,
                                std::span<const std::uint16_t> values) {
    for (const std::uint16_t value : values)
        registers_[key(slave, first++)].value = value;
}

void Register_Store::putFault(std::int32_t slave, std::int32_t first, std::int32_t count,
                              const std::string& response) {
    for (std::int32_t i = 0; i < count; ++i)
        registers_[key(slave, first + i)].fault = response;
}

const Register_Store::Entry* Register_Store::find(std::int32_t slave, std::int32_t address) const {
    const auto found = registers_.find(key(slave, address));
    return found == registers_.end() ? nullptr : &found->second;
}

std::uint16_t Register_Store::at(std::int32_t slave, std::int32_t address) const {
    const Entry* const entry = find(slave, address);
    return entry == nullptr ? std::uint16_t{0} : entry->value;
}

Register_Reading Register_Store::reading(std::int32_t slave, std::int32_t address) const {
    const Entry* const entry = find(slave, address);
    if (entry == nullptr) return {};
    Register_Reading reading{Reading_Age::Never, entry->fault};
    if (entry->readIn > 0)
        reading.age = entry->readIn == opening_ ? Reading_Age::ThisOpening : Reading_Age::EarlierOpening;
    return reading;
}

} // namespace zorvane
