// SPDX-License-Identifier: MIT
#include "ctl/survey/known_template.h"

#include "ctl/document/document_arguments.h"
#include "template/services/native_files.h"

namespace zorvane::ctl {

namespace {

/// What a template says of the addresses on the wire.
class Address_Notice final : public Link_Notice {
  public:
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t base) override { addressBase = base; }

    std::int32_t addressBase = 0;
};

} // namespace

std::optional<Known_Templates> readKnownTemplates(const Call_Context& context,
                                                  const std::vector<std::string>& names) {
    Known_Templates all;
    for (const std::string& name : names) {
        Document_Arguments files;
        files.templatePath = name;
        Address_Notice notice;
        Opened_Document& opened = all.documents.emplace_back(files.open(context, &notice));
        if (!opened.readToTheEnd()) return std::nullopt;
        std::string text = context.files.bytes(templateFile(context, pathFromNative(name))).value_or("");
        all.known.push_back(survey::knownTemplate(opened.document, std::move(text), notice.addressBase));
    }
    return all;
}

} // namespace zorvane::ctl
