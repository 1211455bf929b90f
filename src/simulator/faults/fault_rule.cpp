#include "simulator/faults/fault_rule.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zorvane::simulator {

namespace {

enum class Value_Rule { None, Required, Optional };

struct Kind_Entry {
    std::string_view name;
    Fault_Kind kind;
    Value_Rule rule;
    int lowest;
    int highest;
    std::string_view help;
};

constexpr int defaultUnplugMs = 1000;
constexpr int longestMs = 3'600'000;

constexpr std::array<Kind_Entry, 12> kinds{{
    {"silent", Fault_Kind::Silent, Value_Rule::None, 0, 0, "no answer"},
    {"late", Fault_Kind::Late, Value_Rule::Required, 1, longestMs, "the answer comes that many ms later"},
    {"crc", Fault_Kind::Crc, Value_Rule::None, 0, 0, "the answer's check sum is wrong"},
    {"truncate", Fault_Kind::Truncate, Value_Rule::Required, 1, 255, "only the answer's first so many bytes"},
    {"noise", Fault_Kind::Noise, Value_Rule::Required, 1, 255,
     "so many random bytes joined before the answer"},
    {"echo", Fault_Kind::Echo, Value_Rule::None, 0, 0, "the request's bytes come back before the answer"},
    {"wrong-unit", Fault_Kind::Wrong_Unit, Value_Rule::None, 0, 0, "a good answer from another unit"},
    {"wrong-echo", Fault_Kind::Wrong_Echo, Value_Rule::None, 0, 0,
     "functions 6, 16: another address, value or quantity"},
    {"short", Fault_Kind::Short, Value_Rule::None, 0, 0, "function 3: a good frame with one register fewer"},
    {"exception", Fault_Kind::Exception, Value_Rule::Required, 1, 255, "an exception answer of that number"},
    {"busy", Fault_Kind::Busy, Value_Rule::Required, 1, 1'000'000,
     "exception 6 to the first so many requests of an address"},
    {"unplug", Fault_Kind::Unplug, Value_Rule::Optional, 1, longestMs,
     "the line goes away for that many ms (1000 without)"},
}};

[[noreturn]] void refuse(std::string_view text, const std::string& why) {
    throw Bad_Fault("fault \"" + std::string(text) + "\": " + why);
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

const Kind_Entry& kindOf(std::string_view name, std::string_view text) {
    const auto* const found =
        std::find_if(kinds.begin(), kinds.end(), [&](const Kind_Entry& entry) { return entry.name == name; });
    if (found != kinds.end()) return *found;
    std::string names;
    for (const Kind_Entry& entry : kinds)
        names += (names.empty() ? "" : ", ") + std::string(entry.name);
    refuse(text, "no such kind of fault; there are " + names);
}

int parseValue(const Kind_Entry& entry, std::optional<std::string_view> value, std::string_view text) {
    const std::string name(entry.name);
    if (!value) {
        if (entry.rule == Value_Rule::Required)
            refuse(text, name + " needs a value, as in " + name + "=" + std::to_string(entry.lowest));
        return entry.kind == Fault_Kind::Unplug ? defaultUnplugMs : 0;
    }
    if (entry.rule == Value_Rule::None) refuse(text, name + " takes no value");
    const auto number = parseWhole<int>(*value);
    if (!number || *number < entry.lowest || *number > entry.highest)
        refuse(text, name + " needs a whole number from " + std::to_string(entry.lowest) + " to " +
                         std::to_string(entry.highest));
    return *number;
}

double parsePercent(std::string_view rate, std::string_view text) {
    rate.remove_suffix(1);
    double percent = 0;
    const auto [end, error] =
        std::from_chars(rate.data(), rate.data() + rate.size(), percent, std::chars_format::fixed);
    const bool good =
        error == std::errc{} && end == rate.data() + rate.size() && percent > 0 && percent <= 100;
    if (!good) refuse(text, "a rate is a number above 0 up to 100 with a percent sign, as in 5%");
    return percent;
}

void parseFrequency(std::string_view frequency, std::string_view text, Fault_Rule& rule) {
    if (!frequency.empty() && frequency.back() == '%') {
        rule.percent = parsePercent(frequency, text);
        return;
    }
    rule.count = parseWhole<int>(frequency);
    if (!rule.count || *rule.count < 1) refuse(text, "behind \":\" stands a rate (5%) or a count from 1");
}

void parseRange(std::string_view range, std::string_view text, Fault_Rule& rule) {
    std::string_view start = range;
    const auto end = cutTail(start, '-');
    rule.first = parseWhole<std::int32_t>(start);
    rule.last = end ? parseWhole<std::int32_t>(*end) : rule.first;
    if (!rule.first || !rule.last || *rule.first < 0 || *rule.last < *rule.first)
        refuse(text, "behind \"@\" stands a register or a range, as in 40010 or 40010-40020");
}

} // namespace

Fault_Rule parseFault(std::string_view text) {
    Fault_Rule rule;
    rule.text = text;
    std::string_view rest = text;
    const auto range = cutTail(rest, '@');
    const auto frequency = cutTail(rest, ':');
    const auto value = cutTail(rest, '=');
    const Kind_Entry& entry = kindOf(rest, text);
    rule.kind = entry.kind;
    rule.value = parseValue(entry, value, text);
    if (frequency) parseFrequency(*frequency, text, rule);
    if (range) parseRange(*range, text, rule);
    return rule;
}

std::string faultHelp() {
    std::string help =
        "A fault is KIND[=VALUE][:RATE%|:COUNT][@FIRST[-LAST]], for example crc:5%, silent:3@40010-40020,\n"
        "late=300:10%@1-50. Without rate and count it strikes every time. Kinds:\n";
    for (const Kind_Entry& entry : kinds) {
        std::string name = "  " + std::string(entry.name);
        if (entry.rule == Value_Rule::Required) name += "=N";
        if (entry.rule == Value_Rule::Optional) name += "[=N]";
        name.resize(std::max<std::size_t>(name.size() + 1, 16), ' ');
        help += name + std::string(entry.help) + "\n";
    }
    return help;
}

} // namespace zorvane::simulator
