// SPDX-License-Identifier: MIT
#include "ctl/compare/identity_text.h"

#include "compare/comparison_words.h"
#include "ctl/document/notices.h"
#include "ctl/document/subcommand.h"
#include "ctl/text/text_table.h"

#include <ostream>

namespace zorvane::ctl {

using compare::Fit;
using compare::Verdict;

namespace {

Json optionalJson(const std::optional<std::string>& text) { return text ? jsonText(*text) : Json(); }

Json evidenceJson(const compare::Evidence& evidence) {
    return {{"register", jsonText(evidence.registers)},
            {"what", jsonText(evidence.what)},
            {"expected", jsonText(evidence.expected)},
            {"found", evidence.result == Fit::Not_Read ? Json() : jsonText(evidence.found)},
            {"result", compare::fitWord(evidence.result)}};
}

/// What was found, and of what wasn't read, why.
std::string foundText(const compare::Evidence& evidence) {
    if (evidence.result != Fit::Not_Read) return printable(evidence.found);
    return evidence.unread ? printable(evidence.unread->text()) : "";
}

} // namespace

Json identityJson(const compare::Identity& identity) {
    Json evidence = Json::array();
    for (const compare::Evidence& each : identity.evidence)
        evidence.push_back(evidenceJson(each));
    return {{"verdict", compare::verdictWord(identity.verdict)},
            {"model", jsonText(identity.model)},
            {"unit", identity.unit},
            {"serial", optionalJson(identity.serial)},
            {"firmware", optionalJson(identity.firmware)},
            {"evidence", std::move(evidence)}};
}

void printIdentity(std::ostream& out, const compare::Identity& identity) {
    out << printable(compare::identitySentence(identity)) << '\n';
    if (identity.serial) out << "Serial number: " << printable(*identity.serial) << '\n';
    if (identity.firmware) out << "Firmware: " << printable(*identity.firmware) << '\n';
    if (identity.evidence.empty()) return;
    Text_Table table;
    table.add({"Register", "What", "Expected", "Found", ""});
    for (const compare::Evidence& each : identity.evidence)
        table.add({printable(each.registers), printable(each.what), printable(each.expected), foundText(each),
                   compare::fitWord(each.result)});
    table.print(out, 0);
}

int identityExit(Verdict verdict) {
    switch (verdict) {
    case Verdict::Is:
        return Exit_Success;
    case Verdict::Isnt:
        return Exit_Wrong_Controller;
    case Verdict::Cant_Tell:
        break;
    }
    return Exit_Cant_Tell;
}

} // namespace zorvane::ctl
