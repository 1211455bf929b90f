// SPDX-License-Identifier: MIT
#include "ctl/survey/known_template.h"

#include "template/services/native_files.h"
#include "template/works_settings.h"
#include "values/code_page.h"

namespace zorvane::ctl {

namespace {

constexpr std::int32_t highestUnit = 247;
constexpr std::int32_t highestAddress = 65535;

/// What a template says of the addresses on the wire.
class Address_Notice final : public Link_Notice {
  public:
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t base) override { addressBase = base; }

    std::int32_t addressBase = 0;
};

} // namespace

std::optional<std::uint16_t> Known_Template::addressToRead() const {
    const Declara_Zorvane& document = opened.document;
    std::optional<std::uint16_t> first;
    for (std::int32_t number = 1; number <= document.Holding_Block_Count; ++number) {
        const Holding_Block_Rec& block = document.Holding_Blocks(number);
        const std::int64_t address = std::int64_t{block.First_Address} - addressBase;
        if (address < 0 || address > highestAddress) continue;
        if (block.Request != "ALWAYS") return static_cast<std::uint16_t>(address);
        if (!first) first = static_cast<std::uint16_t>(address);
    }
    return first;
}

std::optional<Known_Template> readKnownTemplate(const Call_Context& context, const std::string& name) {
    Document_Arguments files;
    files.templatePath = name;
    Address_Notice notice;
    Known_Template known{files.open(context, &notice), {}, 0, {}, {}};
    if (!known.opened.readToTheEnd()) return std::nullopt;
    known.addressBase = notice.addressBase;
    known.text = context.files.bytes(templateFile(context, pathFromNative(name))).value_or("");
    const Works_Settings works = readWorksSettings(known.text);
    if (works.line) known.line = parseLineSettings(trimBlanks(*works.line));
    if (works.unit && *works.unit >= 1 && *works.unit <= highestUnit)
        known.unit = static_cast<std::uint8_t>(*works.unit);
    return known;
}

std::optional<std::vector<Known_Template>> readKnownTemplates(const Call_Context& context,
                                                              const std::vector<std::string>& names) {
    std::vector<Known_Template> all;
    for (const std::string& name : names) {
        std::optional<Known_Template> known = readKnownTemplate(context, name);
        if (!known) return std::nullopt;
        all.push_back(std::move(*known));
    }
    return all;
}

} // namespace zorvane::ctl
