// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_rec.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace zorvane {

/// A cell that lies at a register, whole or half.
struct Register_Cell {
    std::int32_t number = 0; ///< the register's
    std::int32_t row = 0;    ///< of the table
    Cell_Rec* cell = nullptr;
};

/// The register that an address names as `n`, `n/HI` or `n/LO` with n as a number is written: `100`, not
/// `0100`.
[[nodiscard]] std::optional<std::int32_t> registerOfAddress(std::string_view address) noexcept;

/// The cells of a table by their registers.
class Register_Index {
  public:
    /// Takes the cells in the table's order, row by row.
    void assign(std::vector<Register_Cell> cells);

    /// The cells at a register, in the table's order.
    [[nodiscard]] std::span<const Register_Cell> cellsAt(std::int32_t number) const;

  private:
    std::vector<Register_Cell> cells_; ///< by number, those of one number in the table's order
};

} // namespace zorvane
