// SPDX-License-Identifier: MIT
#include "edit/plain_number.h"

#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane::edit {

namespace {

bool isPlainDigit(char c) { return c >= '0' && c <= '9'; }

bool allDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), isPlainDigit); }

std::string replaced(std::string_view text, char sign, std::string_view by) {
    std::string out;
    for (const char c : text)
        c == sign ? out.append(by) : out.append(1, c);
    return out;
}

/// Whether a text without its sign is groups of three digits after that separator: "1,234", "12,345,678".
/// A group in front that is 0 or begins with it isn't written so.
bool isGrouped(std::string_view text, char separator) {
    const std::size_t first = text.find(separator);
    if (first == std::string_view::npos || first == 0 || first > 3 || text[0] == '0') return false;
    if (!allDigits(text.substr(0, first))) return false;
    for (text.remove_prefix(first); !text.empty(); text.remove_prefix(4))
        if (text.size() < 4 || text[0] != separator || !allDigits(text.substr(1, 3))) return false;
    return true;
}

std::optional<Plain_Number> numberOf(std::string text, char proven) {
    if (!isNumeric(text)) return std::nullopt;
    return Plain_Number{std::move(text), {}, proven};
}

/// A number with both signs: the last one is the decimal sign, the other one groups.
std::optional<Plain_Number> withBothSigns(std::string_view sign, std::string_view digits) {
    const std::size_t last = digits.find_last_of(".,");
    const char decimal = digits[last];
    const char group = decimal == '.' ? ',' : '.';
    if (!isGrouped(digits.substr(0, last), group)) return std::nullopt;
    return numberOf(std::string(sign) + replaced(digits.substr(0, last), group, "") + "." +
                        std::string(digits.substr(last + 1)),
                    decimal);
}

std::optional<Plain_Number> withOneSign(std::string_view sign, std::string_view digits, char mark) {
    const bool grouped = isGrouped(digits, mark);
    const std::string plain = std::string(sign) + replaced(digits, mark, "");
    if (std::count(digits.begin(), digits.end(), mark) > 1)
        return grouped ? numberOf(plain, mark == '.' ? ',' : '.') : std::nullopt;
    auto number = numberOf(std::string(sign) + replaced(digits, mark, "."), grouped ? '\0' : mark);
    if (number && grouped) number->other = plain;
    return number;
}

} // namespace

std::optional<Plain_Number> plainNumber(std::string_view text) {
    const std::string_view trimmed = trimBlanks(text);
    const bool hasSign = trimmed.starts_with('-') || trimmed.starts_with('+');
    const std::string_view sign = trimmed.substr(0, hasSign ? 1 : 0);
    const std::string_view digits = trimmed.substr(sign.size());
    const bool point = digits.find('.') != std::string_view::npos;
    const bool comma = digits.find(',') != std::string_view::npos;
    if (point && comma) return withBothSigns(sign, digits);
    if (point || comma) return withOneSign(sign, digits, point ? '.' : ',');
    return numberOf(std::string(trimmed), '\0');
}

char provenDecimalSign(const std::vector<std::string_view>& texts) {
    char proven = '\0';
    for (const std::string_view text : texts) {
        const auto number = plainNumber(text);
        if (!number || number->decimalSign == '\0') continue;
        if (proven != '\0' && proven != number->decimalSign) return '\0';
        proven = number->decimalSign;
    }
    return proven;
}

} // namespace zorvane::edit
