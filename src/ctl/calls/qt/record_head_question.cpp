// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/record_head_question.h"

#include "ctl/document/notices.h"
#include "values/code_page.h"

#include <array>
#include <iostream>
#include <utility>

namespace zorvane::ctl {

using commission::Record_Head;

const char* Head_Arguments::unheld() const {
    const std::array<std::pair<const char*, const std::optional<std::string>*>, 5> given{
        {{"--site", &site},
         {"--panel", &panel},
         {"--order", &order},
         {"--tested-by", &testedBy},
         {"--witnessed-by", &witnessedBy}}};
    for (const auto& [option, text] : given) {
        bool whole = true;
        if (*text) static_cast<void>(fromUtf8(**text, &whole));
        if (!whole) return option;
    }
    return nullptr;
}

Record_Head Head_Arguments::over(Record_Head head) const {
    const auto take = [](const std::optional<std::string>& given, std::string& text) {
        if (given) text = fromUtf8(*given);
    };
    take(site, head.site);
    take(panel, head.panel);
    take(order, head.order);
    take(testedBy, head.testedBy);
    take(witnessedBy, head.witnessedBy);
    return head;
}

void askForHead(const Call_Context& context, Record_Head& head) {
    const std::array<std::pair<const char*, std::string*>, 5> questions{
        {{"Site", &head.site},
         {"Panel", &head.panel},
         {"Order", &head.order},
         {"Tested by", &head.testedBy},
         {"Witnessed by", &head.witnessedBy}}};
    for (const auto& [question, text] : questions) {
        for (bool whole = !text->empty(); !whole;) {
            context.err << question << ": " << std::flush;
            std::string answer;
            if (!std::getline(std::cin, answer)) return;
            const std::string said = fromUtf8(answer, &whole);
            if (whole)
                *text = std::string(trimBlanks(said));
            else
                tell(context.err, noRecordHolds);
        }
    }
}

} // namespace zorvane::ctl
