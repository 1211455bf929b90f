// SPDX-License-Identifier: MIT
#include "template/line_scanner.h"

#include "values/code_page.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

namespace zorvane {

std::optional<std::string_view> takeLine(std::string_view& text) noexcept {
    if (text.empty()) return std::nullopt;
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

void Line_Scanner::enterSection(std::string_view line) {
    const std::string_view header = trimBlanks(line);
    if (header.size() < 2) throw Run_Time_Failure(Failure::InvalidCall);
    const std::string_view name = header.substr(1, header.size() - 2);
    const std::size_t first = name.find('_');
    const std::size_t second = first == std::string_view::npos ? first : name.find('_', first + 1);
    if (second == std::string_view::npos) {
        section_ = name;
        return;
    }
    number_ = longValue(name.substr(first + 1, second - first - 1));
    section_ = name.substr(0, first + 1);
    section_ += '#';
    section_ += name.substr(second);
}

std::optional<Key_And_Value> Line_Scanner::scan(std::string_view line) {
    if (line.starts_with(';')) return std::nullopt;
    if (line.starts_with('[')) {
        enterSection(line);
        return std::nullopt;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) return std::nullopt;
    std::string_view value = trimBlanks(line.substr(equals + 1));
    value = value.substr(0, value.find(';'));
    return Key_And_Value{line.substr(0, equals), value};
}

} // namespace zorvane
