// SPDX-License-Identifier: MIT
#include "ctl/survey/find_report.h"

#include "ctl/document/notices.h"
#include "ctl/document/subcommand.h"
#include "ctl/survey/answer_text.h"
#include "ctl/text/text_table.h"

#include <cmath>
#include <ostream>

namespace zorvane::ctl {

namespace {

using survey::Search_End;
using survey::Search_Report;

constexpr int exitNone = 3;

} // namespace

int findExit(const Search_Report& report) {
    if (report.end != Search_End::Searched) return Exit_Failed;
    return report.found.empty() ? exitNone : int{Exit_Success};
}

Json findJson(const Search_Report& report, const std::vector<survey::Found_Identity>& identities) {
    Json found = Json::array();
    for (std::size_t i = 0; i < report.found.size(); ++i) {
        const survey::Found_Unit& unit = report.found[i];
        const survey::Found_Identity& identity = identities[i];
        found.push_back(
            {{"unit", unit.unit},
             {"settings", report.linesCount ? Json(formatLineSettings(unit.line)) : Json(nullptr)},
             {"verdict", identity.verdict},
             {"model", identity.model ? jsonText(*identity.model) : Json(nullptr)},
             {"answer_ms", answerTimesJson(unit.times)},
             {"damaged", unit.damaged}});
    }
    return {{"found", found},
            {"foreign_master", report.foreignMaster.empty() ? Json(nullptr) : Json(report.foreignMaster)},
            {"requests", report.requests},
            {"seconds", jsonNumber(std::round(static_cast<double>(report.duration) / 10000) / 100)}};
}

void printFound(std::ostream& out, const Search_Report& report,
                const std::vector<survey::Found_Identity>& identities) {
    if (report.found.empty()) return;
    Text_Table table;
    table.add({survey::foundHeadings.begin(), survey::foundHeadings.end()});
    for (std::size_t i = 0; i < report.found.size(); ++i) {
        std::vector<std::string> row = survey::foundRow(report.found[i], identities[i], report.linesCount);
        for (std::string& cell : row)
            cell = printable(cell);
        table.add(row);
    }
    table.print(out, 0);
}

} // namespace zorvane::ctl
