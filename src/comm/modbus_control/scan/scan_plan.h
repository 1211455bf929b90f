// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// Registers `first` to `last` of a slave, for the scan modes that the request word belongs to.
struct Scan_Block {
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::string request;
    std::int32_t slave = 0; ///< 0: that of the port settings

    /// Number of registers; 0 when `last` lies before `first`.
    [[nodiscard]] std::int64_t size() const;
};

/// The registered blocks, numbered from 1, and those that the selected mode covers.
class Scan_Plan {
  public:
    void clear();
    void add(Scan_Block block);
    /// "NONE" covers every block; any other word covers the blocks with that request word.
    void setMode(const std::string& mode);

    [[nodiscard]] const std::string& mode() const { return mode_; }
    /// Numbers of the blocks of the mode, in their order.
    [[nodiscard]] const std::vector<std::int32_t>& numbers() const { return numbers_; }
    /// REQUIRES: a number from `numbers()`.
    [[nodiscard]] const Scan_Block& block(std::int32_t number) const;

  private:
    [[nodiscard]] bool covers(const Scan_Block& block) const;

    std::vector<Scan_Block> blocks_;
    std::string mode_;
    std::vector<std::int32_t> numbers_;
};

} // namespace zorvane
