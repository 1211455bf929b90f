// SPDX-License-Identifier: MIT
#include "simulator/faults/rule_text.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace zorvane::simulator {

namespace {

/// What a complaint names.
struct Given {
    std::string_view noun;
    std::string_view text;
};

[[noreturn]] void refuse(const Given& given, const std::string& why) {
    throw Bad_Rule(std::string(given.noun) + " \"" + std::string(given.text) + "\": " + why);
}

template <class Number> std::optional<Number> parseWhole(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// Cuts `text` at the first `mark`: what follows it, or nothing when there is none.
std::optional<std::string_view> cutTail(std::string_view& text, char mark) {
    const std::size_t place = text.find(mark);
    if (place == std::string_view::npos) return std::nullopt;
    const std::string_view tail = text.substr(place + 1);
    text = text.substr(0, place);
    return tail;
}

std::size_t kindNamed(std::string_view name, std::span<const Rule_Kind> kinds, const Given& given) {
    const auto found =
        std::find_if(kinds.begin(), kinds.end(), [&](const Rule_Kind& kind) { return kind.name == name; });
    if (found != kinds.end()) return static_cast<std::size_t>(std::distance(kinds.begin(), found));
    std::string names;
    for (const Rule_Kind& kind : kinds)
        names += (names.empty() ? "" : ", ") + std::string(kind.name);
    refuse(given, "no such kind of " + std::string(given.noun) + "; there are " + names);
}

int parseValue(const Rule_Kind& kind, std::optional<std::string_view> value, const Given& given) {
    const std::string name(kind.name);
    if (!value) {
        if (kind.value == Value_Rule::Required)
            refuse(given, name + " needs a value, as in " + name + "=" + std::to_string(kind.lowest));
        return kind.absent;
    }
    if (kind.value == Value_Rule::None) refuse(given, name + " takes no value");
    const auto number = parseWhole<int>(*value);
    if (!number || *number < kind.lowest || *number > kind.highest)
        refuse(given, name + " needs a whole number from " + std::to_string(kind.lowest) + " to " +
                          std::to_string(kind.highest));
    return *number;
}

double parsePercent(std::string_view rate, const Given& given) {
    rate.remove_suffix(1);
    double percent = 0;
    const auto [end, error] =
        std::from_chars(rate.data(), rate.data() + rate.size(), percent, std::chars_format::fixed);
    const bool good =
        error == std::errc{} && end == rate.data() + rate.size() && percent > 0 && percent <= 100;
    if (!good) refuse(given, "a rate is a number above 0 up to 100 with a percent sign, as in 5%");
    return percent;
}

void parseFrequency(std::string_view frequency, const Given& given, Strike_Rule& strike) {
    if (!frequency.empty() && frequency.back() == '%') {
        strike.percent = parsePercent(frequency, given);
        return;
    }
    strike.count = parseWhole<int>(frequency);
    if (!strike.count || *strike.count < 1) refuse(given, "after \":\" stands a rate (5%) or a count from 1");
}

void parseRange(std::string_view range, const Given& given, Strike_Rule& strike) {
    std::string_view start = range;
    const auto end = cutTail(start, '-');
    strike.first = parseWhole<std::int32_t>(start);
    strike.last = end ? parseWhole<std::int32_t>(*end) : strike.first;
    if (!strike.first || !strike.last || *strike.first < 0 || *strike.last < *strike.first)
        refuse(given, "after \"@\" stands a register or a range, as in 40010 or 40010-40020");
}

} // namespace

Rule_Text parseRule(std::string_view noun, std::span<const Rule_Kind> kinds, std::string_view text) {
    const Given given{noun, text};
    std::string_view rest = text;
    const auto range = cutTail(rest, '@');
    const auto frequency = cutTail(rest, ':');
    const auto value = cutTail(rest, '=');
    Rule_Text rule;
    rule.kind = kindNamed(rest, kinds, given);
    rule.value = parseValue(kinds[rule.kind], value, given);
    if (frequency) parseFrequency(*frequency, given, rule.strike);
    if (range) parseRange(*range, given, rule.strike);
    return rule;
}

std::string kindsHelp(std::span<const Rule_Kind> kinds) {
    std::string help;
    for (const Rule_Kind& kind : kinds) {
        std::string name = "  " + std::string(kind.name);
        if (kind.value == Value_Rule::Required) name += "=N";
        if (kind.value == Value_Rule::Optional) name += "[=N]";
        name.resize(std::max<std::size_t>(name.size() + 1, 16), ' ');
        help += name + std::string(kind.help) + "\n";
    }
    return help;
}

} // namespace zorvane::simulator
