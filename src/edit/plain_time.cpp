// SPDX-License-Identifier: MIT
#include "edit/plain_time.h"

#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <algorithm>
#include <array>

namespace zorvane::edit {

namespace {

struct Three_Parts {
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::int32_t third = 0;
};

bool isShortNumber(std::string_view text) {
    constexpr std::size_t longest = 6;
    return !text.empty() && text.size() <= longest &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<Three_Parts> threeParts(std::string_view text) {
    const std::size_t first = text.find(':');
    if (first == std::string_view::npos) return std::nullopt;
    const std::size_t second = text.find(':', first + 1);
    if (second == std::string_view::npos) return std::nullopt;
    const std::array<std::string_view, 3> parts = {
        text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1)};
    if (!std::all_of(parts.begin(), parts.end(), isShortNumber)) return std::nullopt;
    return Three_Parts{longValue(parts[0]), longValue(parts[1]), longValue(parts[2])};
}

/// Takes the half of the day off the end of a text: the hours that it adds to those of twelve.
std::optional<std::int32_t> takeHalfDay(std::string_view& text) {
    const std::string upper = upperCase(text);
    const bool morning = upper.ends_with(" AM");
    if (!morning && !upper.ends_with(" PM")) return std::nullopt;
    text.remove_suffix(3);
    return morning ? 0 : 12;
}

} // namespace

std::optional<Plain_Time> spreadsheetTime(std::string_view text) {
    std::string_view rest = trimBlanks(text);
    const auto halfDay = takeHalfDay(rest);
    auto parts = threeParts(rest);
    if (!parts || parts->third != 0) return std::nullopt;
    if (halfDay) parts->first = parts->first % 12 + *halfDay;
    Plain_Time time;
    time.text = timeText(parts->first * 60 + parts->second);
    // From 24 on no clock shows it: it can only be what was minutes. As hours no register would hold it.
    if (parts->first < 24) time.other = timeText((parts->first * 60 + parts->second) * 60);
    return time;
}

} // namespace zorvane::edit
