// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// A text that a worksheet can hold as a number, and the format that shows it as it was written.
struct Sheet_Number {
    double value = 0;
    std::string format; ///< such as "0.00"; empty: the worksheet's own
};

/// Nothing for a text that isn't a number as a whole, and for one that a worksheet's numbers can't hold
/// exactly, with more than 15 significant digits, or can't show as it was written: with an exponent, or with
/// hundreds of zeros.
[[nodiscard]] std::optional<Sheet_Number> sheetNumber(std::string_view text);

} // namespace zorvane
