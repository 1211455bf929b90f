// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::edit {

/// What a number that somebody's spreadsheet wrote says.
struct Plain_Number {
    std::string text;  ///< as the system writes it, with a point; the decimal reading where there are two
    std::string other; ///< the second reading of "1,234" or "1.234"; "" where there is one
    char decimalSign = '\0'; ///< the sign that the text proves: "," in "0,5"; 0 when it proves none
};

/// Reads a number with either decimal sign; groups of three are taken where they can't be anything else.
/// Nothing for a text that is no number.
[[nodiscard]] std::optional<Plain_Number> plainNumber(std::string_view text);

/// The decimal sign that the numbers among these texts prove; 0 when none does or two disagree.
[[nodiscard]] char provenDecimalSign(const std::vector<std::string_view>& texts);

} // namespace zorvane::edit
