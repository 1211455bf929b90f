// SPDX-License-Identifier: MIT
// Names of sections and keys, and the numbers in them.

#include "checker/rule.h"
#include "checker/wording.h"
#include "template/pro_interpreta_linea.h"
#include "template/template_words.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

namespace zorvane::checker {

namespace {

/// Whether all that stands in a section are words of older templates, and there are some.
bool holdsReservedKeysOnly(const Checked_Template& checked, const Source_Line& header) {
    bool some = false;
    for (const Source_Line& line : checked.lines()) {
        if (line.number <= header.number) continue;
        if (line.kind == Line_Kind::Header) break;
        if (line.kind != Line_Kind::Key) continue;
        if (!isReservedKey(line.rawKey)) return false;
        some = true;
    }
    return some;
}

/// "Write X." for a word like a known one; else all known ones.
std::string advice(std::string_view wrong, const std::vector<std::string_view>& known, std::int32_t number) {
    const std::string_view best = nearest(wrong, known);
    if (!best.empty()) return "Write " + spelt(best, number) + ".";
    return "The known ones are " + choice(known) + ".";
}

void checkSections(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind != Line_Kind::Header || line.sectionKnown || line.failure) continue;
        if (holdsReservedKeysOnly(checked, line)) continue;
        report(line, "unknown section " + quoted(spelt(line.section, line.sectionNumber)),
               advice(trimBlanks(line.section), templateSections(), line.sectionNumber));
    }
}

void checkNoSection(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind == Line_Kind::Header) return;
        if (line.kind == Line_Kind::Key && line.rawKey.front() != ' ' && !isReservedKey(line.rawKey))
            report(line, "a key in front of the first section", "Write its section's header above it.");
    }
}

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view withoutBlanks(std::string_view key) {
    while (!key.empty() && isBlank(key.front()))
        key.remove_prefix(1);
    while (!key.empty() && isBlank(key.back()))
        key.remove_suffix(1);
    return key;
}

/// Whether a section knows a key, blanks in it or not.
bool isKnown(const Source_Line& line, std::string_view key) {
    std::optional<Numbered_Key> numbered;
    if (!ignoringFailure([&] { numbered = templateKey(line.section, key); }) || !numbered) return false;
    const auto known = templateKeys(line.section);
    return std::find(known.begin(), known.end(), numbered->key) != known.end();
}

bool hasBlanks(const Source_Line& line) { return withoutBlanks(line.rawKey).size() != line.rawKey.size(); }

void checkKeys(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind != Line_Kind::Key || !line.sectionKnown || line.keyKnown || line.failure) continue;
        const std::string_view key = withoutBlanks(line.rawKey);
        if (isReservedKey(key) || key.starts_with(';') || (hasBlanks(line) && isKnown(line, key))) continue;
        report(line,
               "unknown key " + quoted(line.rawKey) + " in [" + spelt(line.section, line.sectionNumber) + "]",
               advice(line.key, templateKeys(line.section), line.keyNumber));
    }
}

void checkKeyBlanks(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind != Line_Kind::Key || !hasBlanks(line)) continue;
        const std::string_view key = withoutBlanks(line.rawKey);
        if (!isKnown(line, key)) continue;
        report(line,
               std::string("a blank ") + (isBlank(line.rawKey.back()) ? "after" : "in front of") +
                   " the key " + quoted(key),
               "Write " + std::string(key) + "= without blanks.");
    }
}

/// Keys whose number has no meaning.
bool ignoresItsNumber(const Source_Line& line) {
    return line.section == "HARDWARE" || line.section == "COLORS" ||
           line.section == "ADDRESS_NOTDOWNLOADABLE" || line.key.starts_with("COMMUNICATIONS_");
}

bool isPlain(std::string_view number) {
    return !number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos;
}

/// What stands in the place of the "#" of a normalised name.
std::string_view numberIn(std::string_view raw, std::string_view name) {
    const std::size_t hash = name.find('#');
    if (hash == std::string_view::npos || raw.size() + 1 < name.size()) return "0";
    return raw.substr(hash, raw.size() + 1 - name.size());
}

void checkKeyNumbers(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        const bool header = line.kind == Line_Kind::Header && line.sectionKnown;
        if (line.failure || !(header || (line.keyKnown && !ignoresItsNumber(line)))) continue;
        const std::string_view name = trimBlanks(line.text);
        const std::string_view number = header ? numberIn(name.substr(1, name.size() - 2), line.section)
                                               : numberIn(line.rawKey, line.key);
        if (isPlain(number)) continue;
        report(line,
               quoted(number) + " is no number; " + numberText(header ? line.sectionNumber : line.keyNumber) +
                   " is taken",
               "Write the number in digits.");
    }
}

/// Keys that add something with every line, or whose repetition has a code of its own.
bool mayBeRepeated(const Source_Line& line) {
    return line.key == "FIELD_#_DESC" || line.key == "FIELD_#_RC" || line.key.starts_with("DOWNLOAD_") ||
           line.key == "HOLDINGREGISTERSBLOCK_#" || line.section == "ADDRESS_NOTDOWNLOADABLE";
}

void checkRepeatedKeys(const Checked_Template& checked, const Report& report) {
    std::map<std::tuple<std::string, std::int32_t, std::string, std::int32_t>, std::int32_t> seen;
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || mayBeRepeated(line)) continue;
        const std::int32_t number = ignoresItsNumber(line) ? 0 : line.keyNumber;
        const auto [place, fresh] =
            seen.try_emplace({line.section, line.sectionNumber, line.key, number}, line.number);
        if (fresh) continue;
        const bool list = line.section == "FIELD_#_MESSAGES";
        report(line, "the same key as in line " + numberText(place->second),
               list ? "Keep one of the two lines. The list of the first one counts."
                    : "Keep one of the two lines. What this one sets counts.");
    }
}

constexpr std::array keyRuleTable = {
    Rule{"section-unknown", Severity::Warning, "a section that the program doesn't know",
         "All lines up to the next header have no effect.", checkSections},
    Rule{"no-section", Severity::Warning, "a key in front of the first section header",
         "The line has no effect.", checkNoSection},
    Rule{"key-unknown", Severity::Warning, "a key that its section doesn't know", "The line has no effect.",
         checkKeys},
    Rule{"key-blank", Severity::Warning, "a blank in front of a key, or between it and the \"=\"",
         "The blank belongs to the key, so the section doesn't know it and the line has no effect.",
         checkKeyBlanks},
    Rule{"number-text", Severity::Warning,
         "a number in a section's or key's name that isn't written in digits",
         "The longest beginning that reads as a number counts, and 0 if there is none.", checkKeyNumbers},
    Rule{"key-twice", Severity::Warning, "the same key of the same section again",
         "One of the two lines is for nothing.", checkRepeatedKeys},
};

} // namespace

std::span<const Rule> keyRules() { return keyRuleTable; }

} // namespace zorvane::checker
