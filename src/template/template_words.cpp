// SPDX-License-Identifier: MIT
#include "template/template_words.h"

#include "template/identity_section.h"
#include "template/pro_interpreta_linea.h"
#include "values/code_page.h"
#include "values/run_time_failure.h"

namespace zorvane {

namespace {

bool isIdentity(std::string_view section) { return isUpperCaseOf(identitySection, section); }

} // namespace

std::vector<std::string_view> templateSections() {
    std::vector<std::string_view> sections = knownSections();
    sections.push_back(identitySection);
    return sections;
}

bool isTemplateSection(std::string_view section) { return isIdentity(section) || isKnownSection(section); }

std::vector<std::string_view> templateKeys(std::string_view section) {
    return isIdentity(section) ? identityKeys() : knownKeys(section);
}

std::optional<Numbered_Key> templateKey(std::string_view section, std::string_view key) {
    if (!isIdentity(section)) return numberedKey(section, key);
    std::optional<Numbered_Key> numbered;
    (void)ignoringFailure(
        [&] { numbered = oneUnderscoreKey(key); }); // no line of the section ends the reading
    return numbered;
}

} // namespace zorvane
