// SPDX-License-Identifier: MIT
#pragma once

#include "compare/comparison.h"
#include "compare/identity.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane::compare {

// What people read of a comparison, in the terminal, in the window and on paper alike; in the code page.

/// "24 values: 1 differs, 1 on one side only, 22 equal": all rows, then those of each sign that there are.
[[nodiscard]] std::string countsText(const Counts& counts);

/// "differs", "one side only", "read only": a sign as a word of a sentence.
[[nodiscard]] std::string_view signPhrase(Sign sign) noexcept;

/// What people see of a side: "not read", "-" for no value, "(code 9)" for a code that no list has.
[[nodiscard]] std::string sideText(const Cell_Side& side);

/// "R6 pulse, Value": row and column of a cell.
[[nodiscard]] std::string settingText(const Row& row);

/// A controller as a side: "controller on ttyUSB0, unit 1".
[[nodiscard]] std::string controllerText(const std::string& port, std::int32_t unit);

/// Who was found at the other end, one sentence.
[[nodiscard]] std::string identitySentence(const Identity& identity);

} // namespace zorvane::compare
