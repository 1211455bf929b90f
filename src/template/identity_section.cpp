// SPDX-License-Identifier: MIT
#include "template/identity_section.h"

#include "template/line_scanner.h"
#include "template/sections/comma_list.h"
#include "template/sections/numbered_key.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zorvane {

namespace {

/// A number of up to four registers. Failure 6 for one that has no place there.
std::int64_t wideNumber(std::string_view text) {
    const double value = std::nearbyint(Val(text));
    constexpr double limit = 9e18;
    if (!(std::fabs(value) < limit)) throw Run_Time_Failure(Failure::Overflow);
    return static_cast<std::int64_t>(value);
}

/// `first-last`, or one register.
Register_Range rangeOf(std::string_view text) {
    const std::size_t dash = text.find('-');
    const std::int32_t first = longValue(text.substr(0, dash));
    return {first, dash == std::string_view::npos ? first : longValue(text.substr(dash + 1))};
}

bool isBlankText(std::string_view text) { return trimBlanks(text).empty(); }

std::vector<Register_Range> rangesIn(std::string_view list) {
    std::vector<Register_Range> ranges;
    forEachItem(list, [&](std::int32_t, std::string_view item) {
        if (!isBlankText(item)) ranges.push_back(rangeOf(item));
        return true;
    });
    return ranges;
}

/// `unit:116,baud:115`. An item without a ":" says nothing.
std::vector<Line_Register> lineRegistersIn(std::string_view list) {
    std::vector<Line_Register> registers;
    forEachItem(list, [&](std::int32_t, std::string_view item) {
        const std::size_t colon = item.find(':');
        if (colon != std::string_view::npos)
            registers.push_back(
                {lowerCase(trimBlanks(item.substr(0, colon))), longValue(item.substr(colon + 1))});
        return true;
    });
    return registers;
}

std::optional<Register_Range> optionalRange(std::string_view text) {
    if (isBlankText(text)) return std::nullopt;
    return rangeOf(text);
}

std::optional<std::int64_t> optionalNumber(std::string_view text) {
    if (isBlankText(text)) return std::nullopt;
    return wideNumber(text);
}

Identity_Mark& markOf(Identity_Section& section, std::int32_t number) {
    const auto place =
        std::lower_bound(section.marks.begin(), section.marks.end(), number,
                         [](const Identity_Mark& mark, std::int32_t wanted) { return mark.number < wanted; });
    if (place != section.marks.end() && place->number == number) return *place;
    const auto made = section.marks.insert(place, Identity_Mark{});
    made->number = number;
    return *made;
}

using Key_Action = void (*)(Identity_Section& section, std::int32_t number, std::string_view value);

constexpr std::array<std::pair<std::string_view, Key_Action>, 16> keys = {{
    {"REGISTER_#", [](Identity_Section& section, std::int32_t number,
                      std::string_view value) { markOf(section, number).registers = optionalRange(value); }},
    {"VALUE_#", [](Identity_Section& section, std::int32_t number,
                   std::string_view value) { markOf(section, number).value = optionalNumber(value); }},
    {"LOW_#", [](Identity_Section& section, std::int32_t number,
                 std::string_view value) { markOf(section, number).low = optionalNumber(value); }},
    {"HIGH_#", [](Identity_Section& section, std::int32_t number,
                  std::string_view value) { markOf(section, number).high = optionalNumber(value); }},
    {"MASK_#", [](Identity_Section& section, std::int32_t number,
                  std::string_view value) { markOf(section, number).mask = optionalNumber(value); }},
    {"TEXTAT_#", [](Identity_Section& section, std::int32_t number,
                    std::string_view value) { markOf(section, number).text = optionalRange(value); }},
    {"IS_#", [](Identity_Section& section, std::int32_t number,
                std::string_view value) { markOf(section, number).is = trimBlanks(value); }},
    {"WHAT_#", [](Identity_Section& section, std::int32_t number,
                  std::string_view value) { markOf(section, number).what = trimBlanks(value); }},
    {"SERIAL", [](Identity_Section& section, std::int32_t,
                  std::string_view value) { section.serial = optionalRange(value); }},
    {"FIRMWARE", [](Identity_Section& section, std::int32_t,
                    std::string_view value) { section.firmware = optionalRange(value); }},
    {"WRITEONLY", [](Identity_Section& section, std::int32_t,
                     std::string_view value) { section.writeOnly = rangesIn(value); }},
    {"LAST",
     [](Identity_Section& section, std::int32_t, std::string_view value) { section.last = rangesIn(value); }},
    {"LEAVEOUT", [](Identity_Section& section, std::int32_t,
                    std::string_view value) { section.leaveOut = rangesIn(value); }},
    {"LINK", [](Identity_Section& section, std::int32_t,
                std::string_view value) { section.link = lineRegistersIn(value); }},
    {"OBJECTS", [](Identity_Section& section, std::int32_t,
                   std::string_view value) { section.objects = upperTrimmed(value) == "YES"; }},
    {"OBJECT_#", [](Identity_Section& section, std::int32_t number,
                    std::string_view value) { section.objectTexts[number] = trimBlanks(value); }},
}};

void readLine(Identity_Section& section, const Key_And_Value& line) {
    const Numbered_Key key = oneUnderscoreKey(line.key);
    for (const auto& [name, action] : keys)
        if (name == key.key) action(section, key.number, line.value);
}

/// Reads one line of the file; gives whether the next one lies in the section. A header on which the
/// template's reader stops ends it.
bool readAnyLine(Identity_Section& section, Line_Scanner& scanner, std::string_view line, bool inside) {
    const bool header = line.starts_with('[');
    std::optional<Key_And_Value> pair;
    if (!ignoringFailure([&] { pair = scanner.scan(line); })) return false;
    if (header) inside = upperCase(scanner.section()) == identitySection;
    section.present = section.present || inside;
    if (inside && pair) (void)ignoringFailure([&] { readLine(section, *pair); });
    return inside;
}

} // namespace

bool Identity_Section::tells() const {
    return (objects && !objectTexts.empty()) ||
           std::any_of(marks.begin(), marks.end(),
                       [](const Identity_Mark& mark) { return mark.tellsByNumber() || mark.tellsByText(); });
}

bool holdsRegister(const std::vector<Register_Range>& ranges, std::int32_t number) {
    return std::any_of(ranges.begin(), ranges.end(), [number](const Register_Range& range) {
        return range.first <= number && number <= range.last;
    });
}

Identity_Section readIdentity(std::string_view templateText) {
    Identity_Section section;
    Line_Scanner scanner;
    bool inside = false;
    while (const auto line = takeLine(templateText))
        inside = readAnyLine(section, scanner, *line, inside);
    return section;
}

std::vector<std::string_view> identityKeys() {
    std::vector<std::string_view> names;
    names.reserve(keys.size());
    for (const auto& key : keys)
        names.push_back(key.first);
    return names;
}

} // namespace zorvane
