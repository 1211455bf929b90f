// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorvane::fuzz {

/// Between the rows, and between the texts of a row, of what the fuzzer made up where every other byte may
/// stand in a text.
inline constexpr char rowEnd = '\x1E';
inline constexpr char textEnd = '\x1F';

/// The parts of a text between separators, always one more than separators.
[[nodiscard]] inline std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.emplace_back(text);
    return parts;
}

} // namespace zorvane::fuzz
