// SPDX-License-Identifier: MIT
#include "template/sections/numbered_key.h"

#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

/// The key with "#" for what stands between its first underscore and `end`.
Numbered_Key numberedKey(std::string_view key, std::size_t first, std::size_t end) {
    std::string name = upperCase(key);
    name.replace(first + 1, end - first - 1, "#");
    return {std::move(name), longValue(key.substr(first + 1, end - first - 1))};
}

} // namespace

Numbered_Key twoUnderscoreKey(std::string_view key) {
    const std::size_t first = key.find('_');
    const std::size_t second = first == std::string_view::npos ? first : key.find('_', first + 1);
    if (second == std::string_view::npos) return {upperCase(key), 0};
    return openUnderscoreKey(key);
}

Numbered_Key oneUnderscoreKey(std::string_view key) {
    const std::size_t first = key.find('_');
    if (first == std::string_view::npos) return {upperCase(key), 0};
    return numberedKey(key, first, key.size());
}

Numbered_Key openUnderscoreKey(std::string_view key) {
    const std::size_t first = key.find('_');
    if (first == std::string_view::npos) return {upperCase(key), 0};
    return numberedKey(key, first, std::min(key.find('_', first + 1), key.size()));
}

} // namespace zorvane
