// SPDX-License-Identifier: MIT
// What a session tells as objects.
#include "commission/session.h"
#include "values/code_page.h"

namespace zorvane::commission {

namespace {

Json optionalText(const std::optional<std::string>& text) { return text ? Json(toUtf8(*text)) : Json(); }

} // namespace

Json identityJson(const compare::Identity& identity) {
    Json evidence = Json::array();
    for (const compare::Evidence& each : identity.evidence)
        evidence.push_back({{"register", toUtf8(each.registers)},
                            {"what", toUtf8(each.what)},
                            {"expected", toUtf8(each.expected)},
                            {"found", toUtf8(each.found)},
                            {"result", compare::fitWord(each.result)}});
    return {{"verdict", compare::verdictWord(identity.verdict)},
            {"model", toUtf8(identity.model)},
            {"unit", identity.unit},
            {"serial", optionalText(identity.serial)},
            {"firmware", optionalText(identity.firmware)},
            {"evidence", evidence}};
}

Json endJson(const Session_End& end) {
    return {{"run", end.run.empty() ? Json() : Json(end.run)},
            {"identity", end.identity ? identityJson(*end.identity) : Json()},
            {"counts", countsJson(end.report.counts)},
            {"rows", rowsJson(end.report)},
            {"requests", {{"reads", end.requests.reads}, {"writes", end.requests.writes}}}};
}

} // namespace zorvane::commission
