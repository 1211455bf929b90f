#pragma once

#include <cstdint>
#include <span>
#include <unordered_map>

namespace zorvane {

/// The last known value of each register, by slave and register number.
class Register_Store {
  public:
    void clear() { values_.clear(); }
    void put(std::int32_t slave, std::int32_t first, std::span<const std::uint16_t> values);
    /// 0 for a register that was never put.
    [[nodiscard]] std::uint16_t at(std::int32_t slave, std::int32_t address) const;

  private:
    std::unordered_map<std::uint64_t, std::uint16_t> values_;
};

} // namespace zorvane
