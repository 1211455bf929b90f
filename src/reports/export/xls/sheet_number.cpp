// SPDX-License-Identifier: MIT
#include "reports/export/xls/sheet_number.h"

#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zorvane {

namespace {

constexpr std::size_t mostDigits = 15;
constexpr std::size_t longestFormat = 255;

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// The digits that count: from the first that isn't 0, up to an exponent.
std::size_t significantDigits(std::string_view number) {
    std::size_t digits = 0;
    for (const char character : number.substr(0, number.find_first_of("eEdD")))
        if (isDigit(character) && (digits > 0 || character != '0')) ++digits;
    return digits;
}

/// A number as it is written, but for its exponent.
struct Written_Number {
    char sign = 0; ///< '+', '-' or none
    std::string_view whole;
    bool point = false;
    std::string_view decimals;
};

/// Nothing for a number with an exponent: worksheets write those in a manner of their own.
std::optional<Written_Number> withoutExponent(std::string_view number) {
    Written_Number written;
    if (!number.empty() && !isDigit(number.front()) && number.front() != '.') {
        written.sign = number.front();
        number.remove_prefix(1);
    }
    const std::size_t point = std::min(number.find('.'), number.size());
    written.whole = number.substr(0, point);
    written.point = point < number.size();
    if (written.point) written.decimals = number.substr(point + 1);
    const auto isPlain = [](std::string_view digits) {
        return std::all_of(digits.begin(), digits.end(), isDigit);
    };
    if (!isPlain(written.whole) || !isPlain(written.decimals)) return std::nullopt;
    return written;
}

/// "0.00" for 1.50, "000" for 007, "#.0" for .5.
std::string digitsFormat(const Written_Number& number) {
    const std::size_t leading = number.whole.empty()          ? 0
                                : number.whole.front() == '0' ? number.whole.size()
                                                              : 1;
    std::string format = leading == 0 ? "#" : std::string(leading, '0');
    if (number.point) format += '.';
    return format + std::string(number.decimals.size(), '0');
}

/// The worksheet's own format for what it writes in the same way: a whole number that isn't long.
std::string formatOf(const Written_Number& number, double value) {
    constexpr std::size_t longestOfItsOwn = 11; // digits; it gives longer ones an exponent
    const std::string digits = digitsFormat(number);
    if (number.sign == '+') return "+" + digits + ";-" + digits;
    if (number.sign == '-' && value == 0) return digits + ";-" + digits + ";-" + digits;
    return digits == "0" && number.whole.size() <= longestOfItsOwn ? "" : digits;
}

} // namespace

std::optional<Sheet_Number> sheetNumber(std::string_view text) {
    const std::string_view number = trimBlanks(text);
    if (!isNumeric(number) || significantDigits(number) > mostDigits) return std::nullopt;
    const double value = Val(number);
    if (!std::isfinite(value)) return std::nullopt;
    const auto written = withoutExponent(number);
    if (!written) return std::nullopt;
    std::string format = formatOf(*written, value);
    if (format.size() > longestFormat) return std::nullopt;
    return Sheet_Number{value + 0.0, std::move(format)}; // a worksheet has no 0 with a sign
}

} // namespace zorvane
