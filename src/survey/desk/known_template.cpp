// SPDX-License-Identifier: MIT
#include "survey/desk/known_template.h"

#include "template/works_settings.h"
#include "values/code_page.h"

#include <utility>

namespace zorvane::survey {

namespace {

constexpr std::int32_t highestUnit = 247;
constexpr std::int32_t highestAddress = 65535;

} // namespace

std::optional<std::uint16_t> Known_Template::addressToRead() const {
    std::optional<std::uint16_t> first;
    for (std::int32_t number = 1; number <= document->Holding_Block_Count; ++number) {
        const Holding_Block_Rec& block = document->Holding_Blocks(number);
        const std::int64_t address = std::int64_t{block.First_Address} - addressBase;
        if (address < 0 || address > highestAddress) continue;
        if (block.Request != "ALWAYS") return static_cast<std::uint16_t>(address);
        if (!first) first = static_cast<std::uint16_t>(address);
    }
    return first;
}

Known_Template knownTemplate(Declara_Zorvane& document, std::string text, std::int32_t addressBase) {
    Known_Template known{&document, std::move(text), addressBase};
    const Works_Settings works = readWorksSettings(known.text);
    if (works.line) known.line = parseLineSettings(trimBlanks(*works.line));
    if (works.unit && *works.unit >= 1 && *works.unit <= highestUnit)
        known.unit = static_cast<std::uint8_t>(*works.unit);
    return known;
}

} // namespace zorvane::survey
