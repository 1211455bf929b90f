#include "comm/register_store.h"

namespace zorvane {

namespace {

std::uint64_t key(std::int32_t slave, std::int32_t address) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(slave)) << 32U) |
           static_cast<std::uint32_t>(address);
}

} // namespace

void Register_Store::put(std::int32_t slave, std::int32_t first, std::span<const std::uint16_t> values) {
    for (const std::uint16_t value : values) {
        values_[key(slave, first++)] = value;
    }
}

std::uint16_t Register_Store::at(std::int32_t slave, std::int32_t address) const {
    const auto found = values_.find(key(slave, address));
    return found == values_.end() ? std::uint16_t{0} : found->second;
}

} // namespace zorvane
