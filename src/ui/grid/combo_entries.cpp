// SPDX-License-Identifier: MIT
#include "ui/grid/combo_entries.h"

#include "values/code_page.h"

#include <algorithm>

namespace zorvane::ui {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// The length of "|#12;" at `from`, 0 when there is no such thing.
std::size_t numberedStart(std::string_view list, std::size_t from) {
    std::size_t at = from;
    if (at < list.size() && list[at] == '|') ++at;
    if (at >= list.size() || list[at] != '#') return 0;
    const std::size_t digits = ++at;
    while (at < list.size() && isDigit(list[at]))
        ++at;
    if (at == digits || at >= list.size() || list[at] != ';') return 0;
    return at + 1 - from;
}

std::size_t nextNumbered(std::string_view list, std::size_t from) {
    for (std::size_t at = list.find('|', from); at != std::string_view::npos; at = list.find('|', at + 1))
        if (numberedStart(list, at) > 0) return at;
    return list.size();
}

std::vector<Combo_Entry> numberedEntries(std::string_view list) {
    std::vector<Combo_Entry> entries;
    std::size_t at = 0;
    while (at < list.size()) {
        const std::size_t text = at + numberedStart(list, at);
        const std::size_t end = nextNumbered(list, text);
        const std::size_t digits = list.find('#', at) + 1;
        entries.push_back({std::string(list.substr(digits, text - 1 - digits)),
                           std::string(list.substr(text, end - text))});
        at = end;
    }
    return entries;
}

std::vector<Combo_Entry> plainEntries(std::string_view list) {
    std::vector<Combo_Entry> entries;
    std::size_t at = list.starts_with('|') ? 1 : 0;
    while (at <= list.size()) {
        const std::size_t end = std::min(list.find('|', at), list.size());
        entries.push_back({"", std::string(list.substr(at, end - at))});
        at = end + 1;
    }
    return entries;
}

} // namespace

std::vector<Combo_Entry> comboEntries(std::string_view list) {
    if (list.empty()) return {};
    return numberedStart(list, 0) > 0 ? numberedEntries(list) : plainEntries(list);
}

std::optional<std::size_t> entryWithText(const std::vector<Combo_Entry>& entries, std::string_view text) {
    const auto placeOf = [&](auto matches) -> std::optional<std::size_t> {
        const auto found = std::find_if(entries.begin(), entries.end(), matches);
        if (found == entries.end()) return std::nullopt;
        return static_cast<std::size_t>(found - entries.begin());
    };
    if (const auto exact = placeOf([&](const Combo_Entry& entry) { return entry.text == text; }))
        return exact;
    const std::string wanted = upperTrimmed(text);
    return placeOf([&](const Combo_Entry& entry) { return upperTrimmed(entry.text) == wanted; });
}

} // namespace zorvane::ui
