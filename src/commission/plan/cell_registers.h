// SPDX-License-Identifier: MIT
#pragma once

#include "commission/plan/plan.h"

#include <string>

namespace zorvane::commission {

/// What a cell sets of the controller's registers.
struct Cell_Registers {
    std::string address;         ///< as the template writes it, a text's as "first-last"
    Register_Range range{0, -1}; ///< empty for a cell without a register
    Part part = Part::Whole;     ///< of each of them
};

/// REQUIRES: the document has the cell.
[[nodiscard]] Cell_Registers registersOf(const Declara_Zorvane& document, const Cell_Place& place);

/// Two parts of one register set together.
[[nodiscard]] constexpr Part joinedPart(Part a, Part b) noexcept { return a == b ? a : Part::Whole; }
/// Whether two cells with these parts of one register set the same of it.
[[nodiscard]] bool partsMeet(Part a, Part b) noexcept;

/// When a write of these registers goes out.
[[nodiscard]] Stage stageOf(const Identity_Section& section, const Register_Range& range);

/// Whether two ranges share a register.
[[nodiscard]] constexpr bool meet(const Register_Range& a, const Register_Range& b) noexcept {
    return a.first <= b.last && b.first <= a.last && a.first <= a.last && b.first <= b.last;
}
[[nodiscard]] bool meetsAny(const std::vector<Register_Range>& ranges, const Register_Range& range);

} // namespace zorvane::commission
