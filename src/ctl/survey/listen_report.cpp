// SPDX-License-Identifier: MIT
#include "ctl/survey/listen_report.h"

#include "ctl/document/notices.h"
#include "ctl/survey/answer_text.h"
#include "ctl/text/text_table.h"

#include <ostream>

namespace zorvane::ctl {

namespace {

using survey::Asked;
using survey::Asking;
using survey::Known_Template;
using survey::Listening_Report;

Json askingJson(const Asked& asked, const Asking& asking, const std::vector<Known_Template>& templates) {
    Json names = Json::array();
    for (const std::string& name : namesAsked(asked, templates))
        names.push_back(jsonText(name));
    return {{"function", asked.function},
            {"address", asked.address},
            {"count", asked.count},
            {"registers", registersAsked(asked, templates)},
            {"names", names},
            {"times", asking.times},
            {"answered", asking.answered},
            {"refused", asking.refused},
            {"period_ms", asking.times > 1 ? msJson(asking.period()) : Json(nullptr)},
            {"answer_ms", answerTimesJson(asking.answerTimes)}};
}

Json unitJson(std::uint8_t number, const survey::Unit_Traffic& unit, Json asks) {
    return {{"unit", number},
            {"requests", unit.requests},
            {"answers", unit.answers},
            {"refusals", unit.refusals},
            {"unpaired", unit.unpaired},
            {"answer_ms", answerTimesJson(unit.answerTimes)},
            {"asks", std::move(asks)}};
}

} // namespace

Json listenJson(const Listening_Report& report, const Line_Settings& line,
                const std::vector<Known_Template>& templates) {
    Json units = Json::array();
    for (const auto& [number, unit] : report.table.units()) {
        Json asks = Json::array();
        for (const auto& [asked, asking] : report.table.askings())
            if (asked.unit == number) asks.push_back(askingJson(asked, asking, templates));
        units.push_back(unitJson(number, unit, std::move(asks)));
    }
    const survey::Unit_Traffic sum = report.table.sum();
    return {{"frames", report.frames},
            {"requests", sum.requests},
            {"answers", sum.answers},
            {"unpaired", sum.unpaired},
            {"load_percent", jsonNumber(loadOf(report, line))},
            {"units", units}};
}

void printHeard(std::ostream& out, const Listening_Report& report, const Line_Settings& line,
                const std::vector<Known_Template>& templates) {
    out << survey::heardText(report, line) << '\n';
    if (report.table.askings().empty()) return;
    Text_Table table;
    table.add({survey::askedHeadings.begin(), survey::askedHeadings.end()});
    for (const auto& [asked, asking] : report.table.askings()) {
        std::vector<std::string> row = survey::askedRow(asked, asking, templates);
        for (std::string& cell : row)
            cell = printable(cell);
        table.add(row);
    }
    table.print(out, 0);
}

} // namespace zorvane::ctl
