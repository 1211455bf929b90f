#include "reports/sheet_number.h"

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

/// "0.00" for 1.50, "000" for 007; the worksheet's own format for what has another form.
std::string formatOf(std::string_view number) {
    if (!number.empty() && number.front() == '-') number.remove_prefix(1);
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::string_view whole = number.substr(0, point);
    const std::string_view decimals = point < number.size() ? number.substr(point + 1) : std::string_view();
    const bool plain = !whole.empty() && std::all_of(whole.begin(), whole.end(), isDigit) &&
                       std::all_of(decimals.begin(), decimals.end(), isDigit);
    if (!plain || (decimals.empty() && (whole.size() == 1 || whole.front() != '0'))) return "";
    const std::size_t leading = whole.front() == '0' ? whole.size() : 1;
    return std::string(leading, '0') + (decimals.empty() ? "" : "." + std::string(decimals.size(), '0'));
}

} // namespace

std::optional<Sheet_Number> sheetNumber(std::string_view text) {
    const std::string_view number = trimBlanks(text);
    if (!isNumeric(number) || significantDigits(number) > mostDigits) return std::nullopt;
    const double value = Val(number);
    if (!std::isfinite(value)) return std::nullopt;
    std::string format = formatOf(number);
    if (format.size() > longestFormat) return std::nullopt;
    return Sheet_Number{value, std::move(format)};
}

} // namespace zorvane
