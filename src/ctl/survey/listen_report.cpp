// SPDX-License-Identifier: MIT
#include "ctl/survey/listen_report.h"

#include "cells/cell_names.h"
#include "ctl/document/notices.h"
#include "ctl/survey/answer_text.h"
#include "ctl/text/text_table.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace zorvane::ctl {

namespace {

using survey::Asked;
using survey::Asking;
using survey::Listening_Report;

constexpr std::size_t mostNames = 3;

bool isOfHoldingRegisters(const Asked& asked) {
    return asked.function == 3 || asked.function == 6 || asked.function == 16 || asked.function == 22 ||
           asked.function == 23;
}

std::int32_t columnOf(Cell_Table& cells, const Register_Cell& wanted) {
    for (std::int32_t column = 1; column <= cells.lastWrittenColumn(wanted.row); ++column)
        if (&cells(wanted.row, column) == wanted.cell) return column;
    return 1;
}

/// Adds the names of a register's cells that aren't there yet.
void addNamesAt(std::vector<std::string>& names, Declara_Zorvane& document, std::int32_t number) {
    for (std::int32_t field = 1; field <= document.Field_Count && names.size() < mostNames; ++field) {
        Cell_Table& cells = document.Fields(field).Cells;
        if (!cells.dimensioned()) continue;
        const auto at = cells.cellsAtRegister(number);
        const std::vector<Register_Cell> found(at.begin(), at.end());
        for (const Register_Cell& cell : found) {
            const std::string name = cellName(document, field, cell.row, columnOf(cells, cell));
            if (names.size() < mostNames && std::find(names.begin(), names.end(), name) == names.end())
                names.push_back(name);
        }
    }
}

std::vector<std::string> namesIn(const Asked& asked, Known_Template& known) {
    std::vector<std::string> names;
    const std::int32_t first = asked.address + known.addressBase;
    for (std::int32_t i = 0; i < asked.count && names.size() < mostNames; ++i)
        addNamesAt(names, known.opened.document, first + i);
    return names;
}

Json askingJson(const Asked& asked, const Asking& asking, std::vector<Known_Template>& templates) {
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
            {"period_ms", msJson(asking.period())},
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

double loadOf(const Listening_Report& report, const Line_Settings& line) {
    return std::round(survey::loadPercent(line, report.bytes, report.duration) * 10) / 10;
}

std::string whatText(const Asked& asked, std::vector<Known_Template>& templates) {
    std::string text;
    for (const std::string& name : namesAsked(asked, templates))
        text += (text.empty() ? "" : "; ") + printable(name);
    return text;
}

} // namespace

Line_Settings lineToListenTo(const std::string& given, const std::vector<Known_Template>& templates) {
    if (const auto line = parseLineSettings(given)) return *line;
    for (const Known_Template& known : templates)
        if (known.line) return *known.line;
    return {};
}

std::vector<std::string> namesAsked(const Asked& asked, std::vector<Known_Template>& templates) {
    if (!isOfHoldingRegisters(asked)) return {};
    for (Known_Template& known : templates)
        if (std::vector<std::string> names = namesIn(asked, known); !names.empty()) return names;
    return {};
}

std::string registersAsked(const Asked& asked, std::vector<Known_Template>& templates) {
    if (!isOfHoldingRegisters(asked)) return "";
    std::int32_t first = asked.address;
    for (Known_Template& known : templates) {
        if (namesIn(asked, known).empty()) continue;
        first += known.addressBase;
        break;
    }
    const std::string text = std::to_string(first);
    return asked.count > 1 ? text + "-" + std::to_string(first + asked.count - 1) : text;
}

Json listenJson(const Listening_Report& report, const Line_Settings& line,
                std::vector<Known_Template>& templates) {
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
                std::vector<Known_Template>& templates) {
    const survey::Unit_Traffic sum = report.table.sum();
    out << report.frames << " frames: " << sum.requests << " requests and " << sum.answers << " answers, "
        << sum.unpaired << " of them without the other. Load "
        << compactJson(jsonNumber(loadOf(report, line))) << " %.\n";
    if (report.table.askings().empty()) return;
    Text_Table table;
    table.add({"Unit", "Function", "Registers", "Times", "Every", "Answered", "Refused", "After",
               "99 % within", "What"});
    for (const auto& [asked, asking] : report.table.askings())
        table.add({std::to_string(asked.unit), std::to_string(asked.function),
                   registersAsked(asked, templates), std::to_string(asking.times), msText(asking.period()),
                   std::to_string(asking.answered), std::to_string(asking.refused),
                   msText(asking.answerTimes.median()), msText(asking.answerTimes.p99()),
                   whatText(asked, templates)});
    table.print(out, 0);
}

std::vector<std::string> listenNotes(const Listening_Report& report, const std::string& port,
                                     const Line_Settings& line) {
    std::vector<std::string> notes;
    if (!report.reason.empty()) notes.push_back("The port " + port + ": " + report.reason);
    if (!report.opened) return notes;
    if (report.bytes == 0)
        notes.push_back("Nothing came in at " + formatLineSettings(line) +
                        ". Does a master ask on this line, and is its cable in this port?");
    else if (report.frames == 0)
        notes.push_back(std::to_string(report.bytes) + " bytes came in, and no frame was among them. Are " +
                        formatLineSettings(line) + " the settings of this line? --settings gives others.");
    else if (report.noiseBytes > 0)
        notes.push_back(std::to_string(report.noiseBytes) + " of " + std::to_string(report.bytes) +
                        " bytes belong to no whole frame.");
    return notes;
}

} // namespace zorvane::ctl
