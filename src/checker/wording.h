// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::checker {

/// A text in quotation marks.
[[nodiscard]] std::string quoted(std::string_view text);

/// "1 register", "2 registers"
[[nodiscard]] std::string counted(std::int64_t count, std::string_view noun);

/// "row 2", "rows 2, 3, 5, 8, 9 and 4 more"
[[nodiscard]] std::string listed(std::string_view noun, const std::vector<std::int32_t>& numbers);

/// "A, B or C"
[[nodiscard]] std::string choice(const std::vector<std::string_view>& words);

/// A name with "#" as a template spells it: with the number, or with "n" when there is none to give.
[[nodiscard]] std::string spelt(std::string_view name, std::int32_t number);

/// The known word that is most like a misspelt one; empty when none is much like it. Letter case counts.
[[nodiscard]] std::string_view nearest(std::string_view word, const std::vector<std::string_view>& known);

} // namespace zorvane::checker
