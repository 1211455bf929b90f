#include "template/pro_interpreta_linea.h"

#include "template/key_line.h"
#include "values/code_page.h"

#include <algorithm>
#include <array>

namespace zorvane {

namespace {

struct Section {
    std::string_view name;
    Numbered_Key (*normalise)(std::string_view key);
    Section_Reader read;
};

constexpr std::array<Section, 12> sections = {{
    {"HARDWARE", twoUnderscoreKey, readHardware},
    {"CONFIGURATION_COLUMNS", twoUnderscoreKey, readConfigurationColumns},
    {"CONFIGURATION_FIELDS", twoUnderscoreKey, readConfigurationFields},
    {"FIELD_#_COLUMNS", twoUnderscoreKey, readFieldColumns},
    {"FIELD_#_CONFIGURATION", oneUnderscoreKey, readFieldConfiguration},
    {"FIELD_#_MESSAGES", oneUnderscoreKey, readFieldMessages},
    {"ADDRESS_NOTDOWNLOADABLE", openUnderscoreKey, readNotDownloadable},
    {"PORT_CONFIGURATION", openUnderscoreKey, readPortConfiguration},
    {"FIELD_#_DEFAULT", oneUnderscoreKey, readFieldDefault},
    {"CONFIGURATION_DEFAULT", oneUnderscoreKey, readConfigurationDefault},
    {"DEFAULT_#_COLUMNS", twoUnderscoreKey, readDefaultColumns},
    {"COLORS", twoUnderscoreKey, readColors},
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

} // namespace zorvane
