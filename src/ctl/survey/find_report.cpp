// SPDX-License-Identifier: MIT
#include "ctl/survey/find_report.h"

#include "comm/modbus_control/line/network_port.h"
#include "ctl/document/notices.h"
#include "ctl/survey/answer_text.h"
#include "ctl/text/text_table.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace zorvane::ctl {

namespace {

using survey::Search_End;
using survey::Search_Report;

constexpr int exitNone = 3;

/// Those that the templates name come first: their controllers leave the works with these numbers.
std::vector<std::uint8_t> unitsInOrder(const std::vector<std::uint8_t>& wanted,
                                       const std::vector<Known_Template>& templates) {
    std::vector<std::uint8_t> units = wanted;
    const auto isNamed = [&templates](std::uint8_t unit) {
        return std::any_of(templates.begin(), templates.end(),
                           [unit](const Known_Template& each) { return each.unit == unit; });
    };
    std::stable_partition(units.begin(), units.end(), isNamed);
    return units;
}

std::string unitAt(const Search_Report& report, std::uint8_t unit, const Line_Settings& line) {
    return "nit " + std::to_string(unit) + (report.linesCount ? " at " + formatLineSettings(line) : "");
}

std::string noneFound(const std::string& port) {
    const std::string slow = " A controller slower than 100 ms may be missed.";
    if (onNetwork(port))
        return "No controller was found. Is it switched on, and the line behind the server wired and set "
               "right?" +
               slow;
    return "No controller was found. Is it switched on, and its cable in this port? With RS-485, exchange "
           "the wires A and B." +
           slow;
}

} // namespace

survey::Search_Plan searchPlan(const Find_Wishes& wishes, const std::vector<Known_Template>& templates) {
    survey::Search_Plan plan;
    plan.port = wishes.port;
    plan.listen = wishes.listen;
    std::vector<Line_Settings> ofTemplates;
    for (const Known_Template& known : templates) {
        if (known.line) ofTemplates.push_back(*known.line);
        const auto address = known.addressToRead();
        if (address &&
            std::find(plan.addresses.begin(), plan.addresses.end(), *address) == plan.addresses.end())
            plan.addresses.push_back(*address);
    }
    if (plan.addresses.empty()) plan.addresses = {0};
    plan.lines =
        wishes.lines.empty() ? survey::likelyLines({}, ofTemplates) : survey::namedLines(wishes.lines);
    if (!takesLineSettings(wishes.port.port)) plan.lines = {{plan.lines.front().line, false}};
    plan.units = unitsInOrder(wishes.units, templates);
    return plan;
}

int findExit(const Search_Report& report) {
    if (report.end != Search_End::Searched) return Exit_Failed;
    return report.found.empty() ? exitNone : int{Exit_Success};
}

Json findJson(const Search_Report& report, const std::vector<Found_Identity>& identities) {
    Json found = Json::array();
    for (std::size_t i = 0; i < report.found.size(); ++i) {
        const survey::Found_Unit& unit = report.found[i];
        const Found_Identity& identity = identities[i];
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
                const std::vector<Found_Identity>& identities) {
    if (report.found.empty()) return;
    Text_Table table;
    table.add({"Unit", "Settings", "Model", "Answers after", "99 % within", "Damaged"});
    for (std::size_t i = 0; i < report.found.size(); ++i) {
        const survey::Found_Unit& unit = report.found[i];
        const Found_Identity& identity = identities[i];
        const std::string model = identity.model                ? printable(*identity.model)
                                  : identity.verdict == "isn't" ? "another"
                                                                : "?";
        const std::string line = report.linesCount ? formatLineSettings(unit.line) : "-";
        table.add({std::to_string(unit.unit), line, model, msText(unit.times.median()),
                   msText(unit.times.p99()), std::to_string(unit.damaged)});
    }
    table.print(out, 0);
}

std::vector<std::string> findNotes(const Search_Report& report, const std::string& port) {
    std::vector<std::string> notes;
    if (report.end == Search_End::PortFailed) notes.push_back("The port " + port + ": " + report.reason);
    if (!report.foreignMaster.empty()) notes.push_back(report.foreignMaster + " The search has stopped.");
    if (report.end == Search_End::Stopped) notes.push_back("The search was stopped before its end.");
    for (const survey::Found_Unit& unit : report.found)
        if (unit.damaged > 0)
            notes.push_back(
                "U" + unitAt(report, unit.unit, unit.line) + ": " + std::to_string(unit.damaged) +
                " of its answers came damaged or twice. Are there two controllers with this number?");
    for (const survey::Doubtful_Unit& unit : report.doubtful)
        notes.push_back("Something answers as u" + unitAt(report, unit.unit, unit.line) +
                        ", but never whole. Are there two controllers with this number? Else look for noise: "
                        "terminate both ends of the line, and join the grounds.");
    if (report.noisy)
        notes.emplace_back("Bytes came in that nobody had asked for and that are no frame: noise, or a "
                           "device that doesn't speak Modbus RTU.");
    if (report.end == Search_End::Searched && report.found.empty()) notes.push_back(noneFound(port));
    return notes;
}

std::string progressText(const survey::Search_Progress& progress) {
    const std::string line = progress.linesCount ? formatLineSettings(progress.line) : "";
    if (progress.unit == 0) return line.empty() ? "Listening" : "Listening at " + line;
    return (line.empty() ? "U" : line + ", u") + "nit " + std::to_string(progress.unit) + " (" +
           std::to_string(progress.tried) + " of " + std::to_string(progress.tried + progress.left) +
           " tried, " + std::to_string(progress.found) + " found)";
}

} // namespace zorvane::ctl
