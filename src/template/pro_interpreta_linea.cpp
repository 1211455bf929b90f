// SPDX-License-Identifier: MIT
#include "template/pro_interpreta_linea.h"

#include "template/sections/section_readers.h"
#include "values/code_page.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zorvane {

namespace {

struct Section {
    std::string_view name;
    Numbered_Key (*normalise)(std::string_view key);
    Section_Reader read;
    Key_Names (*keys)();
};

constexpr std::array<Section, 12> sections = {{
    {"HARDWARE", twoUnderscoreKey, readHardware, hardwareNames},
    {"CONFIGURATION_COLUMNS", twoUnderscoreKey, readConfigurationColumns, configurationColumnsNames},
    {"CONFIGURATION_FIELDS", twoUnderscoreKey, readConfigurationFields, configurationFieldsNames},
    {"FIELD_#_COLUMNS", twoUnderscoreKey, readFieldColumns, fieldColumnsNames},
    {"FIELD_#_CONFIGURATION", oneUnderscoreKey, readFieldConfiguration, fieldConfigurationNames},
    {"FIELD_#_MESSAGES", oneUnderscoreKey, readFieldMessages, fieldMessagesNames},
    {"ADDRESS_NOTDOWNLOADABLE", openUnderscoreKey, readNotDownloadable, notDownloadableNames},
    {"PORT_CONFIGURATION", openUnderscoreKey, readPortConfiguration, portConfigurationNames},
    {"FIELD_#_DEFAULT", oneUnderscoreKey, readFieldDefault, fieldDefaultNames},
    {"CONFIGURATION_DEFAULT", oneUnderscoreKey, readConfigurationDefault, configurationDefaultNames},
    {"DEFAULT_#_COLUMNS", twoUnderscoreKey, readDefaultColumns, defaultColumnsNames},
    {"COLORS", twoUnderscoreKey, readColors, colorsNames},
}};

/// A section by its name in any letter case.
const Section* findSection(std::string_view name) {
    const auto found = std::find_if(sections.begin(), sections.end(),
                                    [&](const Section& entry) { return isUpperCaseOf(entry.name, name); });
    return found == sections.end() ? nullptr : &*found;
}

} // namespace

void PRO_Interpreta_Linea(Declara_Zorvane& document, Link_Notice& link, std::string_view section,
                          std::string_view key, std::string_view value, std::int32_t& number, bool& ok) {
    ok = true;
    const Section* known = findSection(section);
    if (known == nullptr) return;
    Numbered_Key normal = known->normalise(key);
    ok = known->read(Interpreter{document, link},
                     Key_Line{std::move(normal.key), normal.number, number, value});
}

void PRO_Separa_Prefijo(std::string_view text, std::string& tail, std::string& head) {
    const std::size_t cut = text.rfind('_');
    const bool found = cut != std::string_view::npos;
    head = found ? text.substr(0, cut) : std::string_view{};
    tail = found ? text.substr(cut + 1) : std::string_view{};
}

bool isReservedKey(std::string_view key) {
    constexpr std::array<std::string_view, 3> prefixes = {"V_PREFIX", "V_MIRROR", "V_REF"};
    constexpr std::array<std::string_view, 3> wholeKeys = {"BOARD_DESC", "XIONUMS", "ADDR_START"};
    std::string tail;
    std::string head;
    PRO_Separa_Prefijo(key, tail, head);
    return std::find(prefixes.begin(), prefixes.end(), upperCase(head)) != prefixes.end() ||
           std::find(wholeKeys.begin(), wholeKeys.end(), key) != wholeKeys.end();
}

bool isKnownSection(std::string_view section) { return findSection(section) != nullptr; }

std::vector<std::string_view> knownSections() {
    std::vector<std::string_view> names;
    names.reserve(sections.size());
    for (const Section& section : sections)
        names.push_back(section.name);
    return names;
}

std::vector<std::string_view> knownKeys(std::string_view section) {
    const Section* known = findSection(section);
    return known == nullptr ? std::vector<std::string_view>{} : known->keys();
}

std::optional<Numbered_Key> numberedKey(std::string_view section, std::string_view key) {
    const Section* known = findSection(section);
    return known == nullptr ? std::nullopt : std::optional(known->normalise(key));
}

} // namespace zorvane
