// SPDX-License-Identifier: MIT
#include "compare/comparison_words.h"

namespace zorvane::compare {

namespace {

/// "3 differ", "1 on one side only": a count with its words; nothing for none of them.
void addCount(std::string& text, std::size_t count, const char* words) {
    if (count == 0) return;
    text += (text.empty() ? "" : ", ") + std::to_string(count) + words;
}

} // namespace

std::string countsText(const Counts& counts) {
    std::string text;
    addCount(text, counts.of(Sign::Differs), counts.of(Sign::Differs) == 1 ? " differs" : " differ");
    addCount(text, counts.of(Sign::One_Side), " on one side only");
    addCount(text, counts.of(Sign::Read_Only), " read only");
    addCount(text, counts.of(Sign::Changing), " changing");
    addCount(text, counts.of(Sign::Not_Read), " not read");
    addCount(text, counts.of(Sign::Left_Out), " left out");
    addCount(text, counts.of(Sign::Equal), " equal");
    const std::string rows = std::to_string(counts.rows()) + (counts.rows() == 1 ? " value" : " values");
    return text.empty() ? rows : rows + ": " + text;
}

std::string_view signPhrase(Sign sign) noexcept {
    constexpr std::array<std::string_view, allSigns.size()> phrases = {
        "left out", "not read", "on one side only", "equal", "changing", "read only", "differs"};
    return phrases[static_cast<std::size_t>(sign)];
}

std::string sideText(const Cell_Side& side) {
    if (!side.read) return "not read";
    if (!side.value) return "-";
    if (side.shown.empty() && side.held && side.held->size() == 1)
        return "(code " + std::to_string(side.held->front()) + ")";
    return side.shown;
}

std::string settingText(const Row& row) {
    if (row.name.empty() || row.heading.empty()) return row.name + row.heading;
    return row.name + ", " + row.heading;
}

std::string controllerText(const std::string& port, std::int32_t unit) {
    return "controller on " + port + ", unit " + std::to_string(unit);
}

std::string identitySentence(const Identity& identity) {
    const std::string unit = "The controller at unit " + std::to_string(identity.unit);
    switch (identity.verdict) {
    case Verdict::Is:
        return unit + " is a " + identity.model + ".";
    case Verdict::Isnt:
        return unit + " isn't a " + identity.model + ".";
    case Verdict::Cant_Tell:
        break;
    }
    return "It can't be told whether the controller at unit " + std::to_string(identity.unit) + " is a " +
           identity.model + ".";
}

} // namespace zorvane::compare
