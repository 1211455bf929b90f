// SPDX-License-Identifier: MIT
#include "survey/desk/search_words.h"

#include "comm/modbus_control/line/network_port.h"
#include "survey/listen/read_times.h"

#include <algorithm>

namespace zorvane::survey {

namespace {

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

std::string noneFound(const std::string& port, bool gateway) {
    if (gateway)
        return "No controller was found. A gateway answers, but it can't reach these units "
               "(exceptions 10 and 11): check their numbers, and the line behind the gateway.";
    const std::string slow = " A controller slower than 100 ms may be missed.";
    if (onNetwork(port))
        return "No controller was found. Is it switched on, and the line behind the server wired and set "
               "right?" +
               slow;
    return "No controller was found. Is it switched on, and its cable in this port? With RS-485, exchange "
           "the wires A and B." +
           slow;
}

std::string doubtText(const Search_Report& report, const Doubtful_Unit& unit) {
    const std::string which = unitAt(report, unit.unit, unit.line);
    if (unit.unlike)
        return "U" + which +
               " answers, but never twice the same, so it doesn't count as found. Name a template, whose "
               "settings stand still, or look for two controllers with this number.";
    return "Something answers as u" + which +
           ", but never whole. Are there two controllers with this number? Else look for noise: "
           "terminate both ends of the line, and join the grounds.";
}

/// Where something answers, nobody needs to look for its cable.
bool someoneAnswers(const Search_Report& report) {
    return std::any_of(report.doubtful.begin(), report.doubtful.end(),
                       [](const Doubtful_Unit& unit) { return unit.unlike; });
}

} // namespace

Search_Plan searchPlan(const Find_Wishes& wishes, const std::vector<Known_Template>& templates) {
    Search_Plan plan;
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
    plan.lines = wishes.lines.empty() ? likelyLines(wishes.lastGood, ofTemplates) : namedLines(wishes.lines);
    if (!takesLineSettings(wishes.port.port)) plan.lines = {{plan.lines.front().line, false}};
    plan.units = unitsInOrder(wishes.units, templates);
    return plan;
}

std::vector<std::string> foundRow(const Found_Unit& found, const Found_Identity& identity, bool linesCount) {
    const std::string model = identity.model                ? *identity.model
                              : identity.verdict == "isn't" ? "another"
                                                            : "?";
    return {std::to_string(found.unit),
            linesCount ? formatLineSettings(found.line) : "-",
            model,
            msText(found.times.median()),
            msText(found.times.p99()),
            std::to_string(found.damaged)};
}

std::vector<std::string> findNotes(const Search_Report& report, const std::string& port) {
    std::vector<std::string> notes;
    if (report.end == Search_End::PortFailed) notes.push_back("The port " + port + ": " + report.reason);
    if (!report.foreignMaster.empty()) notes.push_back(report.foreignMaster + " The search has stopped.");
    if (report.end == Search_End::Stopped) notes.push_back("The search was stopped before its end.");
    for (const Found_Unit& unit : report.found)
        if (unit.damaged > 0)
            notes.push_back(
                "U" + unitAt(report, unit.unit, unit.line) + ": " + std::to_string(unit.damaged) +
                " of its answers came damaged or twice. Are there two controllers with this number?");
    for (const Doubtful_Unit& unit : report.doubtful)
        notes.push_back(doubtText(report, unit));
    if (report.noisy)
        notes.emplace_back("Bytes came in that nobody had asked for and that are no frame: noise, or a "
                           "device that doesn't speak Modbus RTU.");
    if (report.end == Search_End::Searched && report.found.empty() && !someoneAnswers(report))
        notes.push_back(noneFound(port, report.gateway));
    return notes;
}

std::string progressText(const Search_Progress& progress) {
    const std::string line = progress.linesCount ? formatLineSettings(progress.line) : "";
    if (progress.unit == 0) return line.empty() ? "Listening" : "Listening at " + line;
    return (line.empty() ? "U" : line + ", u") + "nit " + std::to_string(progress.unit) + " (" +
           std::to_string(progress.tried) + " of " + std::to_string(progress.tried + progress.left) +
           " tried, " + std::to_string(progress.found) + " found)";
}

} // namespace zorvane::survey
