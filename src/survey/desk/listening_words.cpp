// SPDX-License-Identifier: MIT
#include "survey/desk/listening_words.h"

#include "survey/listen/read_times.h"

#include <cmath>

namespace zorvane::survey {

namespace {

/// "4.1", "100"
std::string tenthsText(double number) {
    const auto tenths = static_cast<std::int64_t>(std::llround(number * 10));
    const std::string rest = tenths % 10 == 0 ? "" : "." + std::to_string(tenths % 10);
    return std::to_string(tenths / 10) + rest;
}

/// "12.3 ms"; nothing where nothing was measured.
std::string measuredText(bool measured, Micros time) { return measured ? msText(time) : ""; }

std::string whatText(const Asked& asked, const std::vector<Known_Template>& templates) {
    std::string text;
    for (const std::string& name : namesAsked(asked, templates))
        text += (text.empty() ? "" : "; ") + name;
    return text;
}

} // namespace

Line_Settings lineToListenTo(const std::string& given, const std::vector<Known_Template>& templates) {
    if (const auto line = parseLineSettings(given)) return *line;
    for (const Known_Template& known : templates)
        if (known.line) return *known.line;
    return {};
}

double loadOf(const Listening_Report& report, const Line_Settings& line) {
    return std::round(survey::loadPercent(line, report.bytes, report.duration) * 10) / 10;
}

std::string heardText(const Listening_Report& report, const Line_Settings& line) {
    const Unit_Traffic sum = report.table.sum();
    return std::to_string(report.frames) + " frames: " + std::to_string(sum.requests) + " requests and " +
           std::to_string(sum.answers) + " answers, " + std::to_string(sum.unpaired) +
           " of them without the other. Load " + tenthsText(loadOf(report, line)) + " %.";
}

std::vector<std::string> askedRow(const Asked& asked, const Asking& asking,
                                  const std::vector<Known_Template>& templates) {
    const bool answered = asking.answerTimes.count() > 0;
    return {std::to_string(asked.unit),
            std::to_string(asked.function),
            registersAsked(asked, templates),
            std::to_string(asking.times),
            measuredText(asking.times > 1, asking.period()),
            std::to_string(asking.answered),
            std::to_string(asking.refused),
            measuredText(answered, asking.answerTimes.median()),
            measuredText(answered, asking.answerTimes.p99()),
            whatText(asked, templates)};
}

std::vector<std::string> listenNotes(const Listening_Report& report, const std::string& port,
                                     const Line_Settings& line, const std::string& otherSettings) {
    std::vector<std::string> notes;
    if (!report.reason.empty()) notes.push_back("The port " + port + ": " + report.reason);
    if (!report.opened) return notes;
    if (report.bytes == 0)
        notes.push_back("Nothing came in at " + formatLineSettings(line) +
                        ". Does a master ask on this line, and is its cable in this port?");
    else if (report.frames == 0)
        notes.push_back(std::to_string(report.bytes) + " bytes came in, and no frame was among them. Are " +
                        formatLineSettings(line) + " the settings of this line? " + otherSettings);
    else if (report.noiseBytes > 0)
        notes.push_back(std::to_string(report.noiseBytes) + " of " + std::to_string(report.bytes) +
                        " bytes belong to no whole frame.");
    return notes;
}

} // namespace zorvane::survey
