// SPDX-License-Identifier: MIT
#include "values/numbers.h"

#include "values/code_page.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace zorvane {

namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

std::size_t skipDigits(std::string_view text, std::size_t at) noexcept {
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

bool isSign(char c) noexcept { return c == '+' || c == '-'; }

/// The end of an exponent that starts at `at`, or `at` itself when there is no whole exponent there.
std::size_t exponentEnd(std::string_view text, std::size_t at) noexcept {
    if (at >= text.size()) return at;
    const char letter = text[at];
    if (letter != 'e' && letter != 'E' && letter != 'd' && letter != 'D') return at;
    std::size_t digits = at + 1;
    if (digits < text.size() && isSign(text[digits])) ++digits;
    const std::size_t end = skipDigits(text, digits);
    return end > digits ? end : at;
}

/// How many characters at the start of `text` form a number; 0 when none do.
std::size_t numberLength(std::string_view text) noexcept {
    std::size_t at = !text.empty() && isSign(text[0]) ? 1 : 0;
    const std::size_t whole = at;
    at = skipDigits(text, at);
    std::size_t digits = at - whole;
    if (at < text.size() && text[at] == '.') {
        const std::size_t end = skipDigits(text, at + 1);
        digits += end - (at + 1);
        at = end;
    }
    if (digits == 0) return 0;
    return exponentEnd(text, at);
}

/// The number after an exponent's letter, held where no text can be long enough to make up for it.
double exponentOf(std::string_view text) noexcept {
    const bool negative = text[0] == '-';
    double exponent = 0.0;
    for (const char c : text)
        if (isDigit(c)) exponent = std::min(exponent * 10.0 + (c - '0'), 1e18);
    return negative ? -exponent : exponent;
}

/// What a number outside a double's range stands for: 0 below it, infinity above it.
double limitOf(std::string_view number) noexcept {
    const std::size_t letter = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, letter);
    const auto point = static_cast<double>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<double>(digits.find_first_of("123456789"));
    const double exponent = letter == std::string_view::npos ? 0.0 : exponentOf(number.substr(letter + 1));
    return point - first + exponent > 0.0 ? std::numeric_limits<double>::infinity() : 0.0;
}

/// The value of a number without its sign.
double magnitude(std::string_view text) {
    const std::size_t letter = text.find_first_of("dD");
    if (letter != std::string_view::npos) {
        std::string number(text);
        number[letter] = 'e';
        return magnitude(number);
    }
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc::result_out_of_range ? limitOf(text) : value;
}

double parseNumber(std::string_view text) {
    const bool negative = text[0] == '-';
    if (isSign(text[0])) text.remove_prefix(1);
    return negative ? -magnitude(text) : magnitude(text);
}

template <class Whole> Whole rounded(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          whole <= static_cast<double>(std::numeric_limits<Whole>::max())))
        throw Run_Time_Failure(Failure::Overflow);
    return static_cast<Whole>(whole);
}

/// 15 significant digits of a positive number, trailing zeros dropped, and the power of ten of the first one.
struct Significant {
    std::string digits;
    int power;
};

Significant significantDigits(double value) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.14e", value);
    const std::string_view text(buffer);
    const std::size_t e = text.find('e');
    Significant result{std::string(1, text[0]), std::atoi(buffer + e + 1)};
    for (const char c : text.substr(1, e - 1))
        if (isDigit(c)) result.digits += c;
    result.digits.erase(result.digits.find_last_not_of('0') + 1);
    return result;
}

std::string withExponent(const Significant& number) {
    std::string text = number.digits.substr(0, 1);
    if (number.digits.size() > 1) text.append(".").append(number.digits, 1);
    return text.append("E+").append(std::to_string(number.power));
}

std::string plain(const Significant& number) {
    if (number.power < 0)
        return "0." + std::string(static_cast<std::size_t>(-number.power - 1), '0') + number.digits;
    const auto whole = static_cast<std::size_t>(number.power) + 1;
    if (number.digits.size() <= whole) return number.digits + std::string(whole - number.digits.size(), '0');
    return number.digits.substr(0, whole) + "." + number.digits.substr(whole);
}

} // namespace

double Val(std::string_view text) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return 0.0;
    text.remove_prefix(start);
    const std::size_t length = numberLength(text);
    return length == 0 ? 0.0 : parseNumber(text.substr(0, length));
}

bool isNumeric(std::string_view text) noexcept {
    const std::string_view number = trimBlanks(text);
    return !number.empty() && numberLength(number) == number.size();
}

std::int32_t toLong(double value) { return rounded<std::int32_t>(value); }

std::int16_t toInteger(double value) { return rounded<std::int16_t>(value); }

double strictDouble(std::string_view text) {
    if (!isNumeric(text)) throw Run_Time_Failure(Failure::TypeMismatch);
    const double value = Val(text);
    if (std::isinf(value)) throw Run_Time_Failure(Failure::Overflow);
    return value;
}

std::int32_t strictLong(std::string_view text) { return toLong(strictDouble(text)); }

std::int16_t strictInteger(std::string_view text) { return toInteger(strictDouble(text)); }

std::string numberText(double value) {
    if (value == 0.0) return "0";
    if (std::isinf(value) || std::isnan(value)) throw Run_Time_Failure(Failure::Overflow);
    const Significant number = significantDigits(std::fabs(value));
    const std::string text = number.power >= 15 ? withExponent(number) : plain(number);
    return value < 0 ? "-" + text : text;
}

std::string numberText(std::int32_t value) { return std::to_string(value); }

std::string twoDigits(std::int32_t value) {
    const std::string digits = std::to_string(std::llabs(value));
    return (value < 0 ? "-" : "") + (digits.size() < 2 ? "0" + digits : digits);
}

} // namespace zorvane
